// The texts of the string table as they are shipped.
#pragma once

#include <array>
#include <string_view>

namespace stringTable {

struct entry {
    unsigned int id;
    std::wstring_view russian;
    std::wstring_view english;
};

// Sorted by id.
// clang-format off
inline constexpr std::array entries{
    entry{1, L"Маркер", L"Marker"},
    entry{2, L"Интервал", L"Interval"},
    entry{3, L"Колонка", L"Column"},
    entry{4, L"Каротаж", L"Log"},
    entry{5, L"Литология", L"Lithology"},
    entry{6, L"Стратиграфия", L"Stratigraphy"},
    entry{7, L"Растр", L"Raster"},
    entry{8, L"Граница корреляции", L"Correlation border"},
    entry{9, L"Конструкция", L"Construction"},
    entry{10, L"Эксплуатационные элементы", L"Production elements"},
    entry{11, L"Набор данных", L"Data set"},

    entry{30, L"Текст", L"Text"},
    entry{31, L"Большой текст", L"Long text"},
    entry{32, L"Число", L"Number"},
    entry{33, L"Ссылка", L"Link"},
    entry{34, L"Ошибка", L"Error"},
    entry{35, L"Форматированный текст", L"Formatted text"},
    entry{36, L"Признак", L"Flag"},

    entry{40, L"Название", L"Name"},
    entry{41, L"Описание", L"Description"},
    entry{42, L"Тип границы", L"Border type"},
    entry{43, L"Значение", L"Value"},
    entry{44, L"Возрастной индекс", L"Age index"},
    entry{45, L"Ярус", L"Stage"},
    entry{46, L"Подъярус", L"Substage"},
    entry{47, L"Тип подразделения", L"Unit type"},
    entry{48, L"Название подразделения", L"Unit name"},
    entry{49, L"Индекс подразделения", L"Unit index"},
    entry{50, L"Название части подразделения", L"Subunit name"},
    entry{51, L"Индекс части подразделения", L"Subunit index"},
    entry{52, L"Код ВСЕГЕИ", L"VSEGEI code"},
    entry{53, L"Группа", L"Group"},
    entry{54, L"Диаметр", L"Diameter"},
    entry{55, L"Закреплено трубами от", L"Cased from"},
    entry{56, L"Закреплено трубами до", L"Cased to"},
    entry{57, L"Диаметр обсадки", L"Casing diameter"},
    entry{58, L"Тип элемента", L"Element type"},
    entry{59, L"Внутренний диаметр", L"Inner diameter"},
    entry{60, L"Внешний диаметр", L"Outer diameter"},
    entry{61, L"Описание", L"Description"},

    entry{150, L"Начальная глубина", L"Start depth"},
    entry{151, L"Конечная глубина", L"Stop depth"},
    entry{152, L"Шаг квантования", L"Sampling step"},
    entry{153, L"Код отсутствия", L"Absent value"},
    entry{155, L"Наименование скважины", L"Well name"},
    entry{156, L"Наименование площади", L"Field name"},

    entry{431, L"Интервальная скорость", L"Interval velocity"},
    entry{435, L"Средняя скорость", L"Average velocity"},
    entry{439, L"Не удалось обновить базу данных %1 до текущей версии.",
               L"The database %1 could not be upgraded to the current version."},
    entry{440, L"База данных %1 создана более ранней версией. Обновить её?",
               L"The database %1 was made by an earlier version. Upgrade it?"},

    entry{500, L"Тип скважины", L"Well type"},
    entry{501, L"Дата начала бурения", L"Drilling begun on"},
    entry{502, L"Дата окончания бурения", L"Drilling ended on"},
    entry{503, L"Дата закрытия скважины", L"Well closed on"},
    entry{504, L"Уровень воды", L"Water level"},
    entry{505, L"Объём бурения", L"Drilled in all"},
    entry{506, L"Выход керна, м", L"Core recovered, m"},
    entry{507, L"Выход керна, %", L"Core recovered, %"},
    entry{508, L"Проектная глубина", L"Planned depth"},
    entry{509, L"Фактическая глубина", L"Actual depth"},
    entry{510, L"Проектный угол", L"Planned angle"},
    entry{511, L"Фактический угол", L"Actual angle"},
    entry{512, L"Проектный азимут", L"Planned azimuth"},
    entry{513, L"Фактический азимут", L"Actual azimuth"},
    entry{514, L"Отклонение от проектного угла", L"Deviation from the planned angle"},
    entry{515, L"Проектный выход керна, %", L"Planned core recovery, %"},
    entry{516, L"Фактический выход керна, %", L"Actual core recovery, %"},
    entry{517, L"Проектная масса керна", L"Planned core weight"},
    entry{518, L"Фактическая масса керна", L"Actual core weight"},
    entry{519, L"Диаметр керна", L"Core diameter"},
    entry{520, L"Количество проб", L"Number of samples"},
    entry{521, L"Количество проб на шлифы", L"Number of thin-section samples"},
    entry{522, L"Количество образцов", L"Number of specimens"},
    entry{523, L"Количество ящиков с пробами", L"Number of sample boxes"},
    entry{524, L"Дата окончания испытаний", L"Testing ended on"},
    entry{525, L"Дата загрузки испытаний", L"Tests loaded on"},

    entry{1901, L"Глубина", L"Depth"},
    entry{1902, L"Кровля", L"Top"},
    entry{1903, L"Подошва", L"Bottom"},

    entry{2033, L"Name", L"Name"},
    entry{2034, L"Descr", L"Descr"},
    entry{2035, L"Value", L"Value"},
    entry{2036, L"Group", L"Group"},
    entry{2037, L"Diametr", L"Diametr"},
    entry{2038, L"From_pipe", L"From_pipe"},
    entry{2039, L"To_pipe", L"To_pipe"},
    entry{2040, L"Concrete", L"Concrete"},
    entry{2041, L"Comment", L"Comment"},
    entry{2042, L"Element", L"Element"},
    entry{2043, L"Inner_D", L"Inner_D"},
    entry{2044, L"Outer_D", L"Outer_D"},
};
// clang-format on

} // namespace stringTable
