#!/usr/bin/env python3
"""Write the seeds of fuzz_container below seeds/fuzz_container: sequences of steps, by their names.

A line is a step and the bytes of its parameters, in the order in which the step asks for them;
bytes that are left out are 0. Of a name 0 to 3 are "a", "b", "GR" and "gr", 208 and above texts
that break what is not made for them; of a well or property 0, 1, ... are those that are there, 208
and above a new name; n as a number is 1.25 n - 20, as a depth n / 4.

The container that is not empty has the wells a and b; of a, the properties 0 (a log), 1 (points),
2 (intervals) and 3 (borders), a survey, a velocity model and other records.
"""
import pathlib
import re

FUZZ = pathlib.Path(__file__).resolve().parent
STEP_SIZE = 8
EMPTY, FILLED = 0, 1

SEEDS = {
    "empty": (EMPTY, ""),
    "filled": (FILLED, ""),
    "wells": (EMPTY, """
        wells.create 0 0 0
        wells.create 0 0 1
        wells.setPosition 0 50 60
        wells.setAltitude 0 60
        wells.setBottom 0 99
        wells.setAttribute 0 1 2
        wells.rename 0 1 1 1
        wells.setName 0 3 0
        wells.create 0 0 209
        wells.compare 0 1
        wells.remove 0
        care.reopen
        wells.create 0 0 0"""),
    "wells_of_hostile_names": (EMPTY, """
        wells.create 211 212 213
        wells.create 220 222 214
        wells.create 209 0 0
        logs.create 0 214 217 3 40 1 30
        wells.rename 0 213 212 211
        properties.rename 0 0 219 212
        care.copyTo"""),
    "survey_and_model": (FILLED, """
        records.askSurvey 0 40
        records.loadSurvey 0 3 1 40 20 80
        rows.recalcDepth 1 0 0 1
        rows.recalcDepth 0 0 0 1
        wells.setAltitude 0 90
        records.editModel 0 1 30 0 20
        records.askModel 0 40
        records.copyModel 0 1 1
        records.showModel 0 1 2 2
        records.clearSurvey 0
        records.loadModel 0 0"""),
    "beside_the_properties": (FILLED, """
        records.addSection 0 20 40 20 30 1
        records.editSection 0 0 1
        records.workElements 0 20 30 1 1
        records.workElements 0 20 30 1 0 1
        records.drilling 0 20 30 1 1
        records.people 0 0 1 0
        records.people 0 0 1 2
        wells.remove 0"""),
    "properties": (FILLED, """
        properties.create 0 2 2 2
        properties.create 0 4 0 3
        properties.createFromTemplate 0 0 3 3
        properties.createField 0 1 2 3 1
        properties.removeField 0 1 1
        properties.setAttribute 0 0 1 2
        properties.renameAttribute 0 0 0 2
        properties.copy 0 2 1 1
        properties.copyAs 0 0 1 1 2 2
        properties.rename 0 2 3 3
        properties.renameGroup 0 0 1
        properties.removeOpen 0 1 1
        properties.remove 0 0"""),
    "rows": (FILLED, """
        rows.add 1 0 0 2 1 40 0
        rows.addOne 1 0 1 1 40 20 1
        rows.addInMemory 1 0 0 1 40 0 1
        rows.addPoints 1 0 0 20 30 40
        rows.addLayers 1 0 1 3 1 40
        rows.updateValue 1 0 0 0 0 2
        rows.updateDepth 1 0 0 0 40 90
        rows.remove 1 0 1 0 1
        rows.link 1 0 0 0 0 1 0
        rows.convert 1 0 0 3 3 1 90
        rows.setBorderType 0 0 3 0 7
        rows.addToMany 0 2 2 1 2 2"""),
    "logs": (FILLED, """
        logs.create 0 0 1 4 20 1 40
        logs.setSamples 0 0 3 20 1 50
        logs.toSerial 0 0 2 2
        logs.toOre 0 1 0 3 2 17 0
        logs.createByDepths 0 2 3 3 1
        properties.renameGroup 0 0 1
        wells.setName 0 2 0
        care.reopen
        logs.setSamples 0 0 0"""),
    "derived": (FILLED, """
        derived.filter 0 0 3 3 20 0 1
        derived.filter 0 0 3 2 17 1
        logs.create 0 0 1 4 20 1 40
        derived.logFromData 0 0 3 1 0 8
        derived.markers 0 0 2 2 17 0
        derived.join 0 1 0 1 0 2 1
        derived.attributeToColumn 0 0 1 1 2 0
        derived.intervals 0 1 0 2 3 16 1
        logs.toOre 0 1 0 3 1 17 1"""),
    "templates": (FILLED, """
        templates.createFromType 2 1 1 2 3
        properties.createFromTemplate 1 207 0 2
        templates.addField 0 2 3 0 4 1
        templates.renameField 0 0 3
        templates.changeField 0 0 0 3
        templates.checkNumbers 0 0
        templates.deleteField 0 0
        templates.changeType 2 3
        templates.setDrawType 0 1 1 1
        templates.rename 0 2
        templates.createFromTemplate 0 3 0 1
        templates.remove 0"""),
    "dictionaries": (FILLED, """
        dictionaries.addEntry 0 0 4
        dictionaries.addEntry 0 19 14
        dictionaries.create 1
        dictionaries.exportEntries 0 1
        dictionaries.bind 0 1 0 0 1
        dictionaries.askShown 0 1
        dictionaries.editEntry 0 0 0 1
        dictionaries.editEntry 0 0 3
        dictionaries.rename 0 2
        dictionaries.bindKey 0 0 0
        dictionaries.delete 0"""),
    "correlations": (FILLED, """
        correlations.createName 0 0 2 2
        picks.pick 0 0 1 0 40 0
        picks.pick 0 0 0 2 44 1
        picks.move 0 0 0 0 0 30 231
        picks.insertMany 0 0 2 1 3 20 1
        picks.copyWell 0 0 0 1 0
        picks.ask 0 0 0 40 80
        rows.convert 0 0 3 1 1 0
        correlations.moveToGroup 0 0 2 0 1
        correlations.renameName 0 0 1 3
        picks.remove 0 0 0 0 0
        correlations.rename 0 0 2
        correlations.deleteName 0 0 0
        correlations.remove 0 0"""),
    "intervals_across_wells": (FILLED, """
        picks.intervals 0 2 0 40 90 0 0
        picks.intervals 0 2 0 20 24 0 1
        picks.intervals 0 2 1 30 40 0 2"""),
    "las": (EMPTY, """
        exchange.importLas 0 0 2 1 0 3 20
        exchange.importLas 0 0 3 2 1 2 20
        exchange.exportLas 0 1 2
        exchange.exportLas 0 1 0
        wells.compare 0 1"""),
    "tables": (FILLED, """
        exchange.importTable 1 2 3 0 0 1 0
        exchange.exportTable 0 1 0 1
        exchange.importWells 0 0 0 1 2 3 0
        exchange.correlationTable 0 0 0 3 1 0
        exchange.listing 3 20 1 30 40 1 50"""),
    "selections": (FILLED, """
        selections.select 0 1 0 0 0 0
        selections.list 0 2 1 4 0 0
        selections.stampWells 0 0 2 2 0
        selections.exportLas 0 0 2 2 0 1
        selections.filter 1 6 0 0 0 0 1
        selections.removeProperty 0 0 2 2 0 0 1"""),
    "found_log_without_its_file": (FILLED, "properties.create 0 4 2 3"),
    "found_range_of_no_values": (FILLED, "logs.create 0 2 2 0"),
    "found_dictionary_that_is_not_there": (FILLED, "dictionaries.exportEntries 0 220 2"),
    "found_template_that_is_not_there": (FILLED, "templates.addField 220 2"),
    "found_samples_counted_as_records": (FILLED, "rows.remove 0 0 0 0"),
    "held_objects": (FILLED, """
        care.hold 0 1
        wells.setName 0 2 0
        wells.setAltitude 0 90
        rows.addOne 1 0 0 1 40 20 1
        rows.updateValue 1 0 0 0 0 2
        templates.renameField 0 0 3
        properties.rename 0 1 3 3
        care.begin
        wells.remove 0
        care.rollback
        properties.remove 0 3
        wells.remove 0"""),
    "transactions": (FILLED, """
        care.begin
        wells.remove 0
        care.begin
        logs.create 0 1 1 3 20 1 30
        wells.setName 0 2 0
        care.rollback
        properties.create 0 1 1 1
        care.end
        care.begin
        properties.remove 0 0
        properties.rename 0 0 3 3
        care.rollback
        wells.removeAndRollBack 0 0"""),
    "care": (FILLED, """
        care.indexes 0
        wells.create 1 1 1
        care.restore
        care.indexes 1
        care.indexes 2
        care.indexes 3
        care.setProjection 4
        care.repair
        care.begin
        care.restore
        care.copyTo
        care.end
        care.copyTo"""),
}


def opcodes():
    """The first byte of each step, by its name."""
    lists = {}
    for path in (FUZZ / "container").glob("*_steps.cpp"):
        for table in re.finditer(r"constexpr step \w+\[\] = \{(.*?)\};", path.read_text(encoding="utf-8"), re.S):
            names = re.findall(r'L"(\w+)\.(\w+)"', table[1])
            lists[names[0][0]] = [".".join(name) for name in names]
    order = re.search(r"subjects\[\]\)\(\) = \{(.*?)\};", (FUZZ / "container/steps.cpp").read_text(encoding="utf-8"), re.S)
    functions = re.findall(r"(\w+)Steps", order[1])
    subjects = {"well": "wells", "wellRecord": "records", "property": "properties", "row": "rows",
                "log": "logs", "derived": "derived", "template": "templates",
                "dictionary": "dictionaries", "correlation": "correlations", "pick": "picks",
                "exchange": "exchange", "selection": "selections", "care": "care"}
    return {name: 16 * high + low
            for high, function in enumerate(functions)
            for low, name in enumerate(lists[subjects[function]])}


def main():
    folder = FUZZ / "seeds/fuzz_container"
    folder.mkdir(parents=True, exist_ok=True)
    codes = opcodes()
    for name, (first, steps) in SEEDS.items():
        content = bytes([first])
        for line in filter(None, map(str.strip, steps.splitlines())):
            step, *parameters = line.split()
            content += bytes([codes[step], *map(int, parameters)]).ljust(STEP_SIZE, b"\0")
        assert len(content) % STEP_SIZE == 1, name
        (folder / name).write_bytes(content)


if __name__ == "__main__":
    main()
