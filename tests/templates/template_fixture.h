// A container whose templates are changed, by a subscriber to the news of it.
#pragma once

#include "NORLEX_propTemplate.h"
#include "globalEventObserver.h"
#include "tests/support/container_fixture.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

using list = std::vector<std::wstring>;

// name/short name/type/table type/width/precision, a line a field
inline std::wstring spelled(const std::vector<NORLEX_fieldDescr>& fields) {
    std::wstring out;
    for (const auto& f : fields) {
        out +=
            f.name + L"/" + f.short_name + L"/" + fieldType_getBaseEnum(f.type).substr(16) + L"/";
        out += std::to_wstring(f.ds_type) + L"/" + std::to_wstring(f.width) + L"/"
               + std::to_wstring(f.prec) + L"\n";
    }
    return out;
}

inline NORLEX_fieldDescr numeric(const wchar_t* name, const wchar_t* shortName, int precision) {
    NORLEX_fieldDescr field;
    field.name = name;
    field.short_name = shortName;
    field.type = NORLEX_fieldTypeNumeric;
    field.prec = precision;
    return field;
}

class TemplateTest : public ContainerTest {
protected:
    void SetUp() override {
        ContainerTest::SetUp();
        if (IsSkipped())
            return;
        subscriber = std::make_shared<globalEventObserver::callback>([this](const auto& message) {
            heard.push_back(std::to_wstring(message.kind) + L" " + message.params[0]
                            + message.params[1] + message.property.name + message.property.group);
        });
        globalEventObserver::Instance().subscribe(subscriber);
    }
    // Runs statements one after the other.
    void change(std::initializer_list<const wchar_t*> statements) {
        for (const wchar_t* statement : statements)
            ASSERT_TRUE(db()->exec(statement)) << lastError();
    }

    // Wells 1 to 3 and properties of them. "tops" of the wells 1 and 2 and "own" of well 3 are
    // markers: well 1 has the points 10 and 11, well 3 the point 12, well 2 none. "beds" is an
    // interval property with one record, of the key 10 in a key space of its own.
    void fillWells() {
        change(
            {L"INSERT INTO well_base (w_id, work_object, field, name) VALUES "
             L"(1, 'O', 'F', 'W-1'), (2, 'O', 'F', 'W-2'), (3, 'O', 'A', 'W-3')",
             L"INSERT INTO property (pr_id, w_id, bt_id, name, p_group, update_user) VALUES "
             L"(1, 1, 1, 'tops', 'g', 'x'), (2, 2, 1, 'tops', 'g', 'x'), (3, 1, 2, 'beds', 'g', "
             L"'x'), (4, 3, 1, 'own', '', 'x')",
             L"INSERT INTO field (f_id, pr_id, name, type, is_base) VALUES "
             L"(1, 1, 'Название', 's', 0), (2, 1, 'Описание', 's', 0), (3, 2, 'Название', 's', 0), "
             L"(4, 3, 'Название', 's', 0), (5, 4, 'age', 's', 0)",
             L"INSERT INTO val (f_id, value, obj_id) VALUES (1, 'a', 10), (2, 'b', 10), "
             L"(1, 'c', 11), (4, 'd', 10), (5, 'e', 12)",
             L"UPDATE base_template SET update_user = 'x'"});
        ASSERT_TRUE(db()->keys_were_given(L"field", L"f_id"));
    }

    list heard;
    std::shared_ptr<globalEventObserver::callback> subscriber;
};
