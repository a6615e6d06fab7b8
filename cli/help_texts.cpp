#include "cli/help_texts.h"

namespace helpTexts {

const char* const program = "A well database: boreholes, surveys and logs in one file.";

const char* const programFooter =
    "A well is named OBJECT/FIELD/NAME, or NAME alone where only one well bears it; a property\n"
    "GROUP/NAME or NAME alone; \\/ is a slash inside a name. Results are tables, or JSON with\n"
    "--json. Exit codes: 0 done, 1 refused or failed (one line on standard error says why), 2 wrong\n"
    "usage. \"welldb help COMMAND\" tells more of a command.\n"
    "\n"
    "Examples:\n"
    "  welldb create field.well2\n"
    "  welldb import las field.well2 logs/\n"
    "  welldb wells field.well2\n"
    "  welldb COMMAND --help";

const helpText create{
    "create",
    "make a new container",
    "Makes a new container: an empty well database with the standard property templates. Files that "
    "belong to its wells will lie in a folder of its name beside it. The name must end in .well2. "
    "An existing file is left alone unless --force says to replace it.",
    "welldb create field.well2",
};

const helpText info{
    "info",
    "what a container is and holds",
    "Shows what a container is: its path, kind and schema version, how many wells, properties and "
    "templates it holds, who made and changed it when (UTC), and where its attached files lie.",
    "welldb info field.well2 --json",
};

const helpText upgrade{
    "upgrade",
    "bring an older container to the current version",
    "Brings a container that an older version wrote to the current schema. The database is copied to "
    "FILE.vN.bak first, N being its version; without a copy nothing is changed. It asks before it "
    "begins, unless --yes is given. Every other command asks the same of an older container.",
    "welldb upgrade field.well2 --yes",
};

const helpText check{
    "check",
    "look for what does not belong together",
    "Looks through a whole container for rows that nothing leads to, logs without a sample file and "
    "sample files without a log, wells, properties, templates and fields that are there twice, and "
    "damage of the file. Exit code 1 when something is found. --repair removes what nothing leads "
    "to, in one transaction, after a backup into FILE.before-repair.zip.",
    "welldb check field.well2 --json",
};

const helpText backup{
    "backup",
    "write a whole container into one archive",
    "Writes the database, the action journal and the attached files of a container into one zip "
    "archive, as they are at one moment. An archive that is there is replaced once the new one is "
    "whole. A container on a server becomes a local one in the archive.",
    "welldb backup field.well2 field-2024.zip",
};

const helpText restore{
    "restore",
    "make a container of an archive",
    "Makes a container of an archive that backup wrote. Everything is read and checked before "
    "anything is touched. A file that exists is left alone unless --force says to replace it, with "
    "all its attached files. FILE may be a server description: the archive goes to that server.",
    "welldb restore field-2024.zip field.well2",
};

const helpText optimize{
    "optimize",
    "make a large container fast",
    "Refreshes what the database knows of the distribution of its rows. --indexes adds further "
    "indexes, by which look-ups stay fast in containers of many thousand wells; --no-indexes removes "
    "them again.",
    "welldb optimize field.well2 --indexes",
};

const helpText copy{
    "copy",
    "copy a whole container, to a server or from one",
    "Copies a container with everything in it and all its files into a new one, between a local "
    "file and a server in either direction. TO must not exist; a server description names a database "
    "that holds no container yet.",
    "welldb copy field.well2 server.well2",
};

const helpText las{
    "las",
    "show a LAS file without a database",
    "Reads a LAS file and shows its header, its curves with their statistics, and every line that "
    "was not taken, with the reason. POINTS counts all samples of a curve, VALUES those that are "
    "not null; MIN and MAX are of the latter. No database takes part. --header stops at the header, "
    "however large the file is.",
    "welldb las logs/well-12.las --encoding windows-1251",
};

const helpText importCommand{
    "import",
    "read LAS files, tables and surveys into a container",
    "Reads files into a container.",
    "welldb import las field.well2 logs/",
};

const helpText importLas{
    "las",
    "read LAS files into wells and logs",
    "Reads LAS files into a container, each into a well and its logs. The well is found by work "
    "object, field and name, or created with the position and altitude of the file's header. A "
    "folder is walked for *.las; a file that is named is read whatever it is called. --match letters "
    "takes 00-10-28-081-12W4-0 for the well 00/10-28-081-12W4/0. Each file is "
    "taken wholly or not at all, all files are tried, and Ctrl-C keeps what was done.",
    "welldb import las field.well2 logs/ --object North --on-existing skip",
};

const helpText exportCommand{
    "export",
    "write LAS files and tables",
    "Writes files out of a container.",
    "welldb export las field.well2 --well 12 -o well-12.las",
};

const helpText exportLas{
    "las",
    "write logs of a well into a LAS file",
    "Writes logs of one well into a LAS 2.0 file on a common depth grid, whose step is that of the "
    "first log: depths with one decimal, values with three, in windows-1251. With --exact every "
    "sample stands at its own depth with as many decimals as read back the same number, in UTF-8. "
    "Without --prop all logs of the well are written.",
    "welldb export las field.well2 --well 12 --prop LAS/GR --prop LAS/DT --exact -o well-12.las",
};

const helpText wells{
    "wells",
    "list the wells",
    "Lists the wells of a container with their position, altitude and bottom, and how many "
    "properties and stored survey stations each has.",
    "welldb wells field.well2 --json",
};

const helpText well{
    "well",
    "add, set, rename or remove a well",
    "Adds, changes, renames and removes wells.",
    "welldb well add field.well2 --well North/Deep/12",
};

const helpText wellAdd{
    "add",
    "add a well",
    "Adds a well. NAME alone leaves work object and field empty; without numbers the well stands at "
    "altitude 0 and position (0, 0), with no bottom.",
    "welldb well add field.well2 --well North/Deep/12 --altitude 104.5 --x 4512000 --y 6203500",
};

const helpText wellSet{
    "set",
    "change altitude, position or bottom",
    "Changes the altitude, position or bottom of a well. A new altitude moves every absolute depth "
    "of the well: its survey and its logs follow.",
    "welldb well set field.well2 --well North/Deep/12 --bottom 3120.5",
};

const helpText wellRename{
    "rename",
    "rename a well",
    "Renames a well, and moves its files along. NAME alone changes the name and leaves work object "
    "and field as they are; OBJECT/FIELD/NAME changes all three.",
    "welldb well rename field.well2 --well North/Deep/12 --to 12-bis",
};

const helpText wellRemove{
    "remove",
    "remove a well with all its data",
    "Removes a well with its survey, its properties and all their files. It does not ask.",
    "welldb well remove field.well2 --well North/Deep/12",
};

const helpText data{
    "data",
    "show the records of a property",
    "Shows the samples of a log, or the records of points, intervals and picks: measured and "
    "absolute depth, and the value or the fields. --from and --to keep what lies between these "
    "measured depths, both ends included, intervals that reach into them among it. A missing number "
    "is null in JSON and empty in a table or CSV. Fields bound to dictionaries show what their codes "
    "mean, or with --codes the codes.",
    "welldb data field.well2 --well 12 --prop LAS/GR --from 1500 --to 1510 --csv",
};

const helpText depth{
    "depth",
    "convert measured and absolute depths",
    "Converts measured depths into absolute ones (--md) or back (--abs) along the survey of a well. "
    "Absolute depth is altitude minus vertical depth; x and y are the coordinates of the hole at "
    "that depth, head position included.",
    "welldb depth field.well2 --well 12 --md 1500 1500.5 2200",
};

} // namespace helpTexts
