#!/usr/bin/env python3
"""Make the wells of data/demo: the same bytes each time. --check compares instead of writing.

The wells are invented. Beds of known lithology are turned into logs by mixing the responses of
their minerals and fluids, smoothed over the length of a tool and given its noise.
"""
import math
import pathlib
import random
import sys

FOLDER = pathlib.Path(__file__).resolve().parent.parent / "data/demo"
NULL = -999.25

# Response of each bed: gamma ray, API; sonic, us/m; density, g/cm3; neutron porosity, v/v;
# resistivity, ohm m; spontaneous potential, mV.
BEDS = {
    "shale": (105.0, 330.0, 2.48, 0.34, 3.2, -8.0),
    "silty shale": (82.0, 300.0, 2.51, 0.28, 5.5, -20.0),
    "wet sand": (34.0, 278.0, 2.29, 0.24, 1.6, -72.0),
    "oil sand": (31.0, 282.0, 2.25, 0.22, 38.0, -66.0),
    "gas sand": (29.0, 305.0, 2.11, 0.11, 85.0, -58.0),
    "tight sand": (46.0, 228.0, 2.54, 0.08, 24.0, -41.0),
    "limestone": (18.0, 172.0, 2.67, 0.05, 210.0, -35.0),
    "coal": (40.0, 402.0, 1.42, 0.52, 320.0, -15.0),
}

# Curve: unit, description, column of BEDS, decimals, noise of the tool, samples it averages.
CURVES = {
    "GR": ("API", "Gamma ray", 0, 2, 3.0, 3),
    "DT": ("US/M", "Sonic transit time", 1, 2, 2.0, 4),
    "RHOB": ("G/C3", "Bulk density", 2, 4, 0.012, 3),
    "NPHI": ("V/V", "Neutron porosity", 3, 4, 0.008, 3),
    "RT": ("OHMM", "True resistivity", 4, 3, 0.05, 5),  # noise is a part of the value
    "SP": ("MV", "Spontaneous potential", 5, 2, 0.8, 8),
}
RUSSIAN = {
    "GR": ("ГК", "мкР/ч", "Гамма-каротаж"),
    "DT": ("АК", "мкс/м", "Интервальное время"),
    "RHOB": ("ГГКп", "г/см3", "Плотность"),
    "NPHI": ("Кпнк", "д.ед.", "Водородосодержание"),
    "RT": ("ИК", "Ом·м", "Удельное сопротивление"),
    "SP": ("ПС", "мВ", "Потенциал самополяризации"),
}

SEQUENCE = [
    ("shale", 11.0), ("silty shale", 4.5), ("coal", 1.6), ("shale", 7.0), ("gas sand", 6.2),
    ("oil sand", 8.4), ("wet sand", 9.0), ("silty shale", 3.0), ("shale", 6.5), ("tight sand", 4.0),
    ("limestone", 5.6), ("shale", 5.0), ("oil sand", 4.8), ("wet sand", 12.0), ("shale", 30.0),
]


def bed_at(metres, stretch):
    for name, thickness in SEQUENCE:
        metres -= thickness * stretch
        if metres < 0:
            return BEDS[name]
    return BEDS["shale"]


def curve(noise, top, depths, mnemonic, stretch):
    """Values of one curve; the tool's own length leaves nulls at the bottom."""
    _, _, column, decimals, spread, window = CURVES[mnemonic]
    wanted = [bed_at(depth - top, stretch)[column] for depth in depths]
    if mnemonic == "RT":
        wanted = [math.log10(value) for value in wanted]
    values = []
    for i in range(len(wanted)):
        near = wanted[max(0, i - window):i + window + 1]
        value = sum(near) / len(near) + spread * (noise.random() + noise.random() - 1.0)
        values.append(round(10.0 ** value if mnemonic == "RT" else value, decimals))
    for i in range(len(values) - 2 * window, len(values)):
        values[i] = NULL
    return values


def block(entries):
    return [f" {mnemonic + '.' + unit:<12} {value:>22} : {text}" for mnemonic, unit, value, text in entries]


def rows_of(columns, decimals, wrap):
    for row in zip(*columns):
        texts = [f"{value:.{n}f}" for value, n in zip(row, decimals)]
        if wrap:
            yield texts[0]
            for i in range(1, len(texts), 4):
                yield " ".join(f"{text:>12}" for text in texts[i:i + 4])
        else:
            yield " ".join(f"{text:>10}" for text in texts)


def las(seed, well, top, rows, step, stretch=1.0, unit="M", russian=False, wrap=False):
    noise = random.Random(seed)
    metres = 0.3048 if unit == "FT" else 1.0
    depths = [round(top + i * step, 4) for i in range(rows)]
    values = [curve(noise, top * metres, [d * metres for d in depths], name, stretch) for name in CURVES]
    lines = ["~Version Information"]
    lines += block([("VERS", "", "2.0", "CWLS Log ASCII Standard - VERSION 2.0"),
                    ("WRAP", "", "YES" if wrap else "NO", "Several lines per depth step" if wrap else "One line per depth step")])
    lines += ["~Well Information"]
    lines += block([("STRT", unit, f"{depths[0]:.4f}", "Start depth"), ("STOP", unit, f"{depths[-1]:.4f}", "Stop depth"),
                    ("STEP", unit, f"{step:.4f}", "Step"), ("NULL", "", f"{NULL}", "Null value"), *well])
    if russian:  # microroentgen an hour instead of API units
        values[0] = [value if value == NULL else round(value * 0.11, 2) for value in values[0]]
    names = {name: (RUSSIAN[name] if russian else (name, *CURVES[name][:2])) for name in CURVES}
    lines += ["~Curve Information"]
    lines += block([("DEPT", unit, "", "Глубина" if russian else "Measured depth")]
                   + [(mnemonic, unit_, "", text) for mnemonic, unit_, text in names.values()])
    lines += ["~Parameter Information"]
    lines += block([("BHT", "DEGC", f"{31.0 + depths[-1] * metres * 0.027:.1f}", "Температура на забое" if russian else "Bottom hole temperature"),
                    ("MUD", "", "Water based", "Mud type") if not russian else ("MUD", "", "глинистый", "Буровой раствор")])
    lines += ["~ASCII Log Data"]
    lines += rows_of([depths, *values], [4] + [CURVES[name][3] for name in CURVES], wrap)
    return lines


def well(name, field, company, altitude, x, y, russian=False):
    texts = (("Скважина", "Площадь", "Организация", "Альтитуда ротора", "Координата X", "Координата Y") if russian
             else ("Well", "Field", "Company", "Kelly bushing elevation", "Easting", "Northing"))
    return [(mnemonic, unit, value, text) for (mnemonic, unit, value), text in zip(
        [("WELL", "", name), ("FLD", "", field), ("COMP", "", company), ("EKB", "M", f"{altitude:.2f}"),
         ("X", "M", f"{x:.2f}"), ("Y", "M", f"{y:.2f}")], texts)]


def survey():
    """Vertical to 400 m, built up by 2.1 degrees in 30 m to 42 degrees, then held, turning slowly."""
    lines = ["Directional survey", "Well PR-2D, field Pine Ridge. Gyro, run 2. Azimuths from grid north.",
             "=" * 30, "DEPTH ANGLE AZIMUTH", "=" * 30]
    noise, depth = random.Random(7), 0.0
    while depth <= 1860.0:
        angle = min(42.0, max(0.0, (depth - 400.0) * 0.07))
        held = max(0.0, depth - 1000.0)
        wobble = 0.3 * (noise.random() - 0.5)
        azimuth = 0.0 if angle == 0.0 else 118.0 + held * 0.01 + wobble
        lines.append(f"{depth:.2f} {max(0.0, angle + wobble if angle else 0.0):.2f} {azimuth:.2f}")
        depth += 30.0
    return [*lines, "=" * 30, "End of survey"]


def text(lines, encoding="utf-8", end="\n"):
    return "".join(line + end for line in lines).encode(encoding)


def all_files():
    return {
        "pr-1.las": text(las(1, well("PR-1", "Pine Ridge", "Example Energy", 112.4, 455210.0, 6203480.0),
                             1480.0, 540, 0.2)),
        "pr-2d.las": text(las(2, well("PR-2D", "Pine Ridge", "Example Energy", 113.1, 455214.0, 6203492.0),
                              1720.0008, 600, 0.1524, stretch=1.34)),
        "pr-2d-survey.lst": text(survey(), end="\r\n"),
        "pr-3-feet.las": text(las(3, well("PR-3", "Pine Ridge", "Example Energy", 108.7, 456020.0, 6202875.0),
                                  4880.0, 480, 0.5, stretch=0.95, unit="FT"), end="\r\n"),
        "pr-4-wrapped.las": text(las(4, well("PR-4", "Pine Ridge", "Example Energy", 115.0, 454390.0, 6204100.0),
                                     1500.0, 300, 0.25, wrap=True)),
        "severnaya-7-cp1251.las": text(las(5, well("Северная-7", "Северная площадь", "Пример-Геофизика", 96.8,
                                                   512330.0, 6650120.0, russian=True),
                                           2105.0, 400, 0.2, russian=True), encoding="cp1251", end="\r\n"),
    }


def main():
    wrong = 0
    for name, content in all_files().items():
        path = FOLDER / name
        if "--check" not in sys.argv:
            FOLDER.mkdir(parents=True, exist_ok=True)
            path.write_bytes(content)
        elif not path.is_file() or path.read_bytes() != content:
            print(f"data/demo/{name} is not what tools/make_demo_data.py makes")
            wrong += 1
    return bool(wrong)


if __name__ == "__main__":
    sys.exit(main())
