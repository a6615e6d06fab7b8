// What --help says of each command.
#pragma once

struct helpText {
    const char* name;      // the word that calls it
    const char* brief;     // in the list of commands
    const char* paragraph; // in its own help
    const char* example;
};

namespace helpTexts {

extern const helpText create;
extern const helpText info;
extern const helpText upgrade;
extern const helpText check;
extern const helpText backup;
extern const helpText restore;
extern const helpText optimize;
extern const helpText copy;
extern const helpText las;
extern const helpText importCommand;
extern const helpText importLas;
extern const helpText exportCommand;
extern const helpText exportLas;
extern const helpText wells;
extern const helpText well;
extern const helpText wellAdd;
extern const helpText wellSet;
extern const helpText wellRename;
extern const helpText wellRemove;
extern const helpText data;
extern const helpText depth;

extern const char* const program;
extern const char* const programFooter;

} // namespace helpTexts
