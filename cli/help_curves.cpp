#include "cli/help_curves.h"

namespace helpTexts {

const helpText curvesCommand{
    "curves",
    "look up what curves of LAS files mean",
    "The catalogue of log curves says what the mnemonics of LAS files mean: the unit, the type of "
    "log, and which other names there are for the same curve.",
    "welldb curves find NPHI",
};

const helpText curvesFind{
    "find",
    "say what one mnemonic means",
    "Looks for a mnemonic in any case of letters, then for a synonym as it is written.",
    "welldb curves find ННКТ --json",
};

const helpText curvesList{
    "list",
    "list the curves of the catalogue",
    "Lists the mnemonics with their units and types, all or those of one type.",
    "welldb curves list --type Гамма-каротаж",
};

const helpText curvesTypes{
    "types",
    "list the types of log",
    "Lists the types of log with the number of their curves.",
    "welldb curves types",
};

} // namespace helpTexts
