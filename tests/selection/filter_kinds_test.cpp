#include "NORLEX_filterKinds.h"

#include <gtest/gtest.h>

namespace {

TEST(FilterKindsTest, everyNumberHasItsOwnText) {
    std::wstring types;
    for (int i = 0; i <= 10; ++i)
        types += getFilterTypeName(static_cast<NORLEX_filterType>(i)) + L";";
    EXPECT_EQ(types,
              L";Данные;Содержимое данных;Дополнительная информация о скважине;Геометрия;Геометрия;"
              L"Информация о скважине;Геометрия данных;Шаблон;Время создания или изменения;;");

    std::wstring operations;
    for (int i = -1; i <= 15; ++i)
        operations += getFilterOperationName(static_cast<NORLEX_filterOperation>(i)) + L";";
    EXPECT_EQ(operations,
              L";;Существует;Не существует;Пустое значение;Не пустое значение;Равно;Не равно;"
              L"Больше;Больше равно;Меньше;Меньше равно;Содержит;Не содержит;Начинается с;"
              L"Заканчивается на;;");

    std::wstring kinds;
    for (int i = 0; i <= 12; ++i)
        kinds += getWellFilterTypeName(static_cast<NORLEX_filterWellType>(i)) + L";";
    EXPECT_EQ(kinds,
              L";Координаты;Альтитуда;Данные;Инклинометрия;Конструкция;Эксплуатационные элементы;"
              L"Буровой журнал;Документы;;Скоростная модель;Каротаж;;");
}

} // namespace
