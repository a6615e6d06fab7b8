// Tells subscribers about a change of this layer once it is committed.
#pragma once

#include "globalEventObserver.h"
#include "odbc_database.h"

#include <utility>

namespace announce {

// `post` gets the observer and the container's identity. A change that is rolled back is never
// announced, and none before other connections can see it.
template <typename Post>
void afterCommit(odbc_database& db, Post post) {
    db.after_commit([container = db.get_identity(), post = std::move(post)] {
        post(globalEventObserver::Instance(), container);
    });
}

} // namespace announce
