#include "pwdHolder.h"

#include "NORLEX_contDescription.h"

#include <tuple>

pwdHolder& pwdHolder::Instance() {
    static pwdHolder holder;
    return holder;
}

bool pwdHolder::fill(NORLEX_contDescription& description) {
    if (description.type == 1)
        return true;
    const std::lock_guard lock(m_mutex);
    if (const auto found = m_pairs.find(description.path); found != m_pairs.end()) {
        std::tie(description.user, description.password) = found->second;
        return true;
    }
    if (description.isNeedPwd())
        return false;
    m_pairs[description.path] = {description.user, description.password};
    return true;
}

void pwdHolder::set(const std::wstring& path,
                    const std::wstring& user,
                    const std::wstring& password) {
    const std::lock_guard lock(m_mutex);
    m_pairs[path] = {user, password};
}
