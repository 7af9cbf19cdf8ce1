#!/usr/bin/env python3
"""Writes made-up addresses in the form of OpenAddresses to standard output.

    bench/make-addresses.py 1000000 > addresses.csv

The same number gives the same addresses: some 90,000 streets of 48 ZIP codes of Austin TX, their
rows in no order, one in five with a unit.
"""
import random
import sys

FIRST = "Oak Elm Maple Cedar Pine River Lake Hill Stone Mill".split()
SECOND = ["", "wood", "view", " Creek", " Ridge", "ton"]
TYPES = "St Ave Rd Dr Ln Ct Blvd Way".split()
DIRECTIONS = [""] * 7 + ["N ", "South ", "E "]
ZIPS = ["787%02d" % n for n in [*range(1, 6), *range(17, 60)]]


def main():
    count = int(sys.argv[1]) if len(sys.argv) == 2 else 0
    if count < 1:
        sys.exit("usage: make-addresses.py COUNT")
    chance = random.Random(1)
    write = sys.stdout.write
    write("LON,LAT,NUMBER,STREET,UNIT,CITY,DISTRICT,REGION,POSTCODE,ID,HASH\n")
    for _ in range(count):
        street = "%s%s%s %s" % (chance.choice(DIRECTIONS), chance.choice(FIRST),
                                chance.choice(SECOND), chance.choice(TYPES))
        unit = "Apt %d" % chance.randint(1, 40) if chance.random() < 0.2 else ""
        write("-97.7%06d,30.2%06d,%d,%s,%s,Austin,,TX,%s,,%016x\n" %
              (chance.randrange(10**6), chance.randrange(10**6), chance.randint(1, 9999), street,
               unit, chance.choice(ZIPS), chance.getrandbits(64)))


if __name__ == "__main__":
    main()
