#!/usr/bin/env python3
"""Writes friends.csv, an address book of 200 entries as people keep them: mostly right, spelt in every
way, with a few addresses that no service can find.

    examples/books/make-friends.py > examples/books/friends.csv

The people, houses and numbers are invented. Cities and ZIP codes are real, from data/us-zips.tsv
(GeoNames, Creative Commons Attribution 4.0). The same table gives the same book.
"""

import csv
import pathlib
import random
import sys

ZIPS = pathlib.Path(__file__).resolve().parents[2] / "data" / "us-zips.tsv"
ENTRIES = 200

GIVEN = ("Ada Alma Amir Ana Arthur Beatriz Bruno Carmen Cedric Clara Daniel Dolores Edith Elena Emil "
         "Esther Fatima Felix Grace Hannah Hugo Ines Irene Ivan Jada James Joan José Julia Kenji Lena "
         "Leo Lucía Luis Mabel Marcus Marie Miguel Mina Nadia Nora Oscar Paula Pearl Rafael Rosa Ruth "
         "Samuel Sofía Theo Vera Walter").split()
FAMILY = ("Abbott Alvarez Baker Barnes Bishop Castillo Chen Cohen Cruz Delgado DeWitt Dixon Estrada "
          "Fischer Flores Fowler García Grant Haddad Hoffman Ibarra Jensen Kaplan Kim Lambert Le Lopez "
          "MacArthur Mendoza Meyer Moreno Nakamura Nguyen Novak O'Brien Ortiz Park Peña Perry Quinn "
          "Ramos Reyes Rossi Saito Schmidt Silva Stone Torres Vega Walsh Weber Yates Young").split()
COMPANIES = ["Bluebird Bakery", "Corner Books", "Harbor & Sons", "Oak Street Clinic",
             "Prairie Solar, Inc.", "Riverside Garage", "Three Pines Studio", "Union Hardware Co."]
OFFICES = ["City Hall", "Public Library", "County Courthouse", "Museum of Art", "Fire Station 4"]
STREETS = ("Main Maple Oak Cedar Elm Washington Lincoln Jackson Franklin Lake Hill Park Church Mill River "
           "Spring Highland Sunset Prospect Meadow Walnut Chestnut Willow College Jefferson Madison "
           "Monroe Adams Center Railroad").split() + ["Martin Luther King", "Saint Charles", "Old Post"]
# As people write them; the last of each row is what the Postal Service writes.
SUFFIXES = [("Street", "St.", "St"), ("Avenue", "Ave.", "Ave"), ("Road", "Rd.", "Rd"),
            ("Boulevard", "Blvd.", "Blvd"), ("Drive", "Dr.", "Dr"), ("Lane", "Ln.", "Ln"),
            ("Court", "Ct.", "Ct"), ("Place", "Pl.", "Pl")]
DIRECTIONS = [("North", "N.", "N"), ("South", "So.", "S"), ("East", "E.", "E"), ("West", "W.", "W")]
UNITS = [("Apartment {}", "Apt. {}", "Apt {}"), ("Suite {}", "Ste. {}", "Ste {}"),
         ("Unit {}", "Unit {}", "Unit {}")]
HEADER = ["Name", "Company", "Address 1", "Address 2", "City", "State", "ZIP", "Phone", "Notes"]


def places(generator):
    rows = [line.rstrip("\n").split("\t") for line in ZIPS.open(encoding="utf-8")]
    military = {"AA", "AE", "AP"}
    return generator.sample([row for row in rows if row[2] not in military], ENTRIES)


def street_lines(generator):
    """One or two lines, in one of the ways in which people write them."""
    way = generator.randrange(3)
    if generator.random() < 0.08:
        return [["P.O. Box {}", "PO box {}", "PO Box {}"][way].format(generator.randrange(1, 4000)), ""]
    words = [str(generator.randrange(1, 9900))]
    if generator.random() < 0.3:
        words.append(generator.choice(DIRECTIONS)[way])
    words.append(generator.choice(STREETS))
    words.append(generator.choice(SUFFIXES)[way])
    unit = ""
    if generator.random() < 0.25:
        unit = generator.choice(UNITS)[way].format(generator.choice(["2", "4B", "12", "210", "C"]))
    if unit and generator.random() < 0.5:
        return [" ".join(words) + ", " + unit, ""]
    return [" ".join(words), unit]


def addressee(generator):
    kind = generator.random()
    if kind < 0.06:
        return [generator.choice(OFFICES), ""]
    name = generator.choice(GIVEN) + " " + generator.choice(FAMILY)
    return [name, generator.choice(COMPANIES) if kind < 0.2 else ""]


def spoil(generator, row):
    """Makes a few addresses wrong, and writes others carelessly."""
    name, company, line1, line2, city, state, zip_code = row
    chance = generator.random()
    if chance < 0.04:
        zip_code = "00000"
    elif chance < 0.07:
        state = "ZZ"
    elif chance < 0.09:
        line1 = "somewhere near the old mill"
    elif chance < 0.16:
        city = city.replace("e", "ee", 1) if "e" in city else city + "e"
    elif chance < 0.30:
        line1, line2, city, state = line1.lower(), line2.lower(), city.lower(), state.lower()
    elif chance < 0.40:
        line1, line2, city = line1.upper(), line2.upper(), city.upper()
    return [name, company, line1, line2, city, state, zip_code]


def main():
    generator = random.Random(1847)
    writer = csv.writer(sys.stdout, lineterminator="\n")
    writer.writerow(HEADER)
    for number, (zip_code, city, state) in enumerate(places(generator)):
        row = addressee(generator) + street_lines(generator) + [city, state, zip_code]
        phone = f"555-01{number % 100:02d}" if generator.random() < 0.5 else ""
        note = generator.choice(["", "", "", "holiday card", "moved in May", "newsletter"])
        writer.writerow(spoil(generator, row) + [phone, note])


if __name__ == "__main__":
    sys.stdout.reconfigure(encoding="utf-8")
    main()
