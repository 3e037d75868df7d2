#!/usr/bin/env python3
"""Makes the data files of the examples from public tables.

Usage: tools/make_example_data.py FOLDER
FOLDER holds co2-concentration.csv, global-temp.csv and seattle-weather.csv of the npm package vega-datasets
(npm pack vega-datasets).
"""
import csv
import pathlib
import sys

EXAMPLES = pathlib.Path(__file__).resolve().parent.parent / "examples"


def decimal_year(date):
    """The 15th of the month, as the table is adjusted to it."""
    year, month, _ = (int(part) for part in date.split("-"))
    return year + (month - 0.5) / 12


def write(name, comment, header, columns, rows):
    lines = ["%QSL-ASC"] + [f"// {line}" for line in comment] + ["%HEADER"]
    lines += [f"{key} = '{value}'" for key, value in header.items()]
    lines += ["%DATA", f"{len(columns)}  // " + ", ".join(columns)]
    lines += ["  ".join(row) for row in rows] + ["%END"]
    (EXAMPLES / name).write_text("\n".join(lines) + "\n")


def main(folder):
    with open(folder / "co2-concentration.csv") as file:
        table = list(csv.DictReader(file))
    write("mauna_loa_co2.qdf",
          ["Monthly carbon dioxide over Mauna Loa, Hawaii, in parts per million.",
           "Scripps CO2 Program, licence CC BY 4.0; see NOTICE."],
          {"SOURCE": "Scripps CO2 Program", "UNIT": "ppm"},
          ["decimal year", "monthly mean", "seasonally adjusted"],
          [(f"{decimal_year(r['Date']):.3f}", r["CO2"], r["adjusted CO2"]) for r in table])
    with open(folder / "global-temp.csv") as file:
        table = list(csv.DictReader(file))
    write("global_temperature.qdf",
          ["Yearly mean temperature of the earth against the mean of 1951 to 1980, in degrees Celsius.",
           "NASA Goddard Institute for Space Studies, GISTEMP; public domain; see NOTICE."],
          {"SOURCE": "NASA GISS GISTEMP", "UNIT": "degC"},
          ["year", "anomaly"],
          [(r["year"], r["temp"]) for r in table])
    with open(folder / "seattle-weather.csv") as file:
        table = [row for row in csv.DictReader(file) if row["date"].startswith("2012")]
    write("gallery/seattle_2012.qdf",
          ["Weather of Seattle-Tacoma airport on the days of 2012: day of the year from 0, precipitation in mm, highest",
           "and lowest temperature in degrees Celsius, wind in m/s.",
           "NOAA National Climatic Data Center; public domain; see NOTICE."],
          {"SOURCE": "NOAA NCDC"},
          ["day", "precipitation", "highest", "lowest", "wind"],
          [(str(i), r["precipitation"], r["temp_max"], r["temp_min"], r["wind"]) for i, r in enumerate(table)])


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
