// Display texts and messages by number, in two languages.
#pragma once

#include <string>

namespace stringTable {

// The text under `id` in the current language; empty when there is none.
[[nodiscard]] std::wstring text(unsigned int id);

// A message with every "%1" replaced by `argument`.
[[nodiscard]] std::wstring text(unsigned int id, const std::wstring& argument);

// Numbers that the code uses by name. Databases and host applications hold on to them.
enum : unsigned int {
    // Display names of data types; those of litology and stratigraphy are met in old data only.
    typeMarker = 1,
    typeInterval = 2,
    typeColumn = 3,
    typeLog = 4,
    typeLitology = 5,
    typeStratigraphy = 6,
    typeRastr = 7,
    borderTemplateName = 8,
    typeConstruction = 9,
    typeWorkConstruction = 10,
    typeSerial = 11,
    typeVDMInterval = 431,
    typeVDMAvg = 435,

    // Display names of field types.
    fieldTypeString = 30,
    fieldTypeBigstring = 31,
    fieldTypeNumeric = 32,
    fieldTypeLink = 33,
    fieldTypeError = 34,
    fieldTypeVsegei = 35,
    fieldTypeBoolean = 36,

    // Names of the fields that standard templates have. The first thirteen, in this order, are
    // what the upgrade renames the oldest fields to.
    fieldName = 40,        // "Название"
    fieldDescription = 41, // "Описание"
    fieldBorderType = 42,
    fieldValue = 43,
    fieldAgeIndex = 44,
    fieldStage = 45,
    fieldSubStage = 46,
    fieldSubjectType = 47,
    fieldSubjectName = 48,
    fieldSubjectIndex = 49,
    fieldSubjectSubName = 50,
    fieldSubjectSubIndex = 51,
    fieldVsegeiCode = 52,
    fieldGroup = 53,
    fieldDiameter = 54,
    fieldFromPipe = 55,
    fieldToPipe = 56,
    fieldConcrete = 57,
    fieldElement = 58,
    fieldInnerDiameter = 59,
    fieldOuterDiameter = 60,
    fieldComment = 61,

    // Their short names, of at most ten characters, alike in every language.
    shortName = 2033,
    shortDescription = 2034,
    shortValue = 2035,
    shortGroup = 2036,
    shortDiameter = 2037,
    shortFromPipe = 2038,
    shortToPipe = 2039,
    shortConcrete = 2040,
    shortComment = 2041,
    shortElement = 2042,
    shortInnerDiameter = 2043,
    shortOuterDiameter = 2044,

    // Descriptions of the well entries of an exported LAS file.
    lasStart = 150,
    lasStop = 151,
    lasStep = 152,
    lasNull = 153,
    lasWell = 155,
    lasField = 156,

    // Passport keys of wells that were columns of their own once, in the order of those columns.
    passportWellType = 500, // to 525

    // Names of filter types, comparisons and kinds of data in order of their numbers, from 1.
    filterTypes = 600,
    filterOperations = 620,
    filterWellTypes = 640,

    // What a selection tells people.
    selectionAll = 660,
    selectionByHand = 661,
    selectionAnd = 662,
    selectionOr = 663,
    selectionInverted = 664,
    selectionAdded = 665,
    selectionRemoved = 666,
    selectionWells = 667,
    selectionMore = 668,

    taxonTypes = 680, // levels of the stratigraphic chart, in order of their numbers from 0

    upgradeFailed = 439,   // %1: path of the database
    upgradeQuestion = 440, // %1: path of the database
};

} // namespace stringTable
