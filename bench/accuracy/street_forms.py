"""Delivery lines in the forms used in the country, each composed of known elements.

A form takes a random source and a state, and returns the elements of the street, those of the units,
and the lines as typed.
"""

from judge import Element
from publication28 import (COMMON_SUFFIXES, DIRECTIONS, ORDINALS, PLAIN_UNITS, STATES, SUFFIX_NAMES,
                           SUFFIX_STANDARD, UNITS, ordinal)

NAMES = """Main;Oak;Elm;Maple;Washington;Lincoln;Jefferson;2nd Line;Cedar;Pine Grove;Walnut;Chestnut;Hickory;Sunset
Hill;Lake;Park;Glen;Mill;Spring;Forest;Center;Church;School;River;Ridge;Valley View;Lake Shore;Old Mill;Park Ridge
Martin Luther King Jr;MacArthur;O'Neil;McKinley;John F Kennedy;La Cienega;El Camino Real;Peña Blanca;Winston-Salem
St. Charles;St Louis;Saint James;Mount Vernon;Fort Washington;Twin Oaks;Central Park;Sunset Hill;Bay Point;Orchard Ridge
Rolling Hills;Cherry Creek;Van Buren;De la Vina;Old Post;Country Club;Court;Market;Union;Station;Bridge;Meadow Brook
Crescent;Grand;Broad;Front;High;Court House;Mission;Port;Ferry;Green;Stone Creek;Long Meadow;Fox Run;Deer Path;Canal
King;Queen Anne;Prince George;Rose;Lower Mill;Upper Falls;Office Park;Lot;Space Center;Pier;Harbor View;Key;Beach
Unity;Stewart;Eastman;Northrup;Westlake;Southport;Aptos;Floral;Boxwood;Drexel;Roadrunner;Lanark;Courtland;Avondale
A;B;K;Cactus Wren;Calle Real;Via Verde;Avenida;Vista Grande;Alameda;Paseo;Tuscarawas;Susquehanna;Albuquerque""" \
    .replace("\n", ";").split(";")
WITHOUT_SUFFIX = ["Broadway", "Bowery", "Fenway", "Boardwalk", "Strand", "Esplanade",
                  "Embarcadero", "Tamiami", "Malecon", "Camino del Sol", "Via Appia", "Paseo del Norte", "Plymouth Rock"]
SPANISH = ["Sol", "Luna", "San Juan", "1", "3", "17", "Las Flores", "Muñoz Rivera", "Betances", "del Parque"]


def element(kind, standard, typed, *also):
    return Element(kind, standard, typed, also)


def number(chance, low=1, high=9999):
    value = str(chance.randint(low, chance.choice([99, 999, high])))
    return element("number", value, value)


def directional(chance, postfix=False):
    standard = chance.choice(list("NSEW") * 4 + ["NE", "NW", "SE", "SW"])
    long = DIRECTIONS[standard][0].title()
    dotted = ".".join(standard) + "."
    typed = chance.choice([standard] * 6 + [long] * 4 + [dotted] * 2 + [standard + "."] * (len(standard) == 1)
                          + [name.title() for name in DIRECTIONS[standard][1:2]])
    return element("directional", standard, typed)


def suffix(chance):
    if chance.random() < 0.85:
        standard = chance.choice(COMMON_SUFFIXES)
        names = [standard.title()] * 6 + [standard.title() + "."] * 2 + [SUFFIX_NAMES[standard][0].title()] * 5
        typed = chance.choice(names)
    else:
        typed = chance.choice(list(SUFFIX_STANDARD)).title()
        standard = SUFFIX_STANDARD[typed.upper()]
    return element("suffix", standard, typed)


def name(typed, *also):
    return element("name", typed.replace("'", "").replace("-", " ").replace("ñ", "n").replace(".", ""), typed, *also)


def unit(chance):
    if chance.random() < 0.12:
        standard = chance.choice(list(PLAIN_UNITS))
        return element("unit", standard, chance.choice([standard, PLAIN_UNITS[standard][0]]).title())
    designator = chance.choice(["APT"] * 8 + ["STE"] * 6 + ["#"] * 5 + ["UNIT"] * 4 + list(UNITS))
    value = chance.choice([str(chance.randint(1, 30)), str(chance.randint(100, 2500)), chance.choice("ABCDEK"),
                           f"{chance.randint(1, 30)}{chance.choice('ABCD')}",
                           f"{chance.choice('ABCD')}{chance.randint(1, 30)}",
                           f"{chance.randint(1, 12)}-{chance.choice('ABC')}"])
    long = chance.choice([designator, UNITS[designator][0]]).title()
    typed = {"#": chance.choice([f"#{value}", f"# {value}"])}.get(
        designator, chance.choice([f"{long} {value}"] * 8 + [f"{long}. {value}", f"{long} #{value}"]))
    return element("unit", f"{designator} {value}", typed)


def units(chance, share=0.22):
    if chance.random() >= share:
        return []
    if chance.random() < 0.06:
        outer = element("unit", *[f"BLDG {chance.randint(1, 9)}"] * 2)
        return [outer, element("unit", *[f"APT {chance.randint(1, 40)}"] * 2)]
    return [unit(chance)]


def written(chance, street, unit_elements):
    line = " ".join(part.typed for part in street)
    if not unit_elements:
        return street, [], [line]
    tail = ", ".join(part.typed for part in unit_elements)
    lines = chance.choices([[f"{line} {tail}"], [f"{line}, {tail}"], [line, tail], [tail, line]], [45, 30, 20, 5])[0]
    return street, unit_elements, lines


def common_street(chance, state, house=None, pre=0.22, post=0.08):
    street = [house or number(chance)]
    if chance.random() < pre:
        street.append(directional(chance))
    street += [name(chance.choice(NAMES)), suffix(chance)]
    if chance.random() < post:
        street.append(directional(chance))
    return written(chance, street, units(chance))


def numbered_street(chance, state):
    value = chance.choice([chance.randint(1, 12), chance.randint(1, 220)])
    typed = ordinal(value).lower()
    also = [typed, f"{value}"]
    if value in ORDINALS:  # in words or in digits, as the town writes it
        also.append(ORDINALS[value])
        typed = chance.choice([typed, typed, ORDINALS[value]])
    street = [number(chance)]
    if chance.random() < 0.4:
        street.append(directional(chance))
    street += [element("name", typed.upper(), typed, *also), suffix(chance)]
    if chance.random() < 0.12:
        street.append(directional(chance))
    return written(chance, street, units(chance))


def name_without_suffix(chance, state):
    street = [number(chance)]
    if chance.random() < 0.2:
        street.append(directional(chance))
    street.append(name(chance.choice(WITHOUT_SUFFIX)))
    return written(chance, street, units(chance))


def directional_as_name(chance, state):
    form = chance.randrange(3)
    way = chance.choice(["North", "South", "East", "West"])
    street = [number(chance)]
    if form == 0:    # 419 South Blvd
        street += [name(way), suffix(chance)]
    elif form == 1:  # 12 N East St
        street += [element("directional", *[chance.choice("NS")] * 2), name(chance.choice(["East", "West"])), suffix(chance)]
    else:            # 12 E Street
        street += [name(chance.choice("NSEW")), element("suffix", "ST", "Street")]
    return written(chance, street, units(chance))


def suffix_as_name(chance, state):
    form = chance.randrange(3)
    street = [number(chance)]
    if form == 0:    # 12 Avenue E
        street.append(name(f"Avenue {chance.choice('ABCDEHJKMNSUWX')}"))
    elif form == 1:  # 12 Avenue of the Americas
        street.append(name(chance.choice(["Avenue of the Americas", "Avenue of the Stars", "Court of the Oaks"])))
    else:            # 789 Main Avenue Drive: of two, the first is spelt out
        long, short = chance.choice([("Avenue", "Ave"), ("Court", "Ct"), ("Point", "Pt"), ("Lane", "Ln"), ("Terrace", "Ter")])
        base = chance.choice(["Main", "Bay", "Oak", "Mill"])
        typed = f"{base} {chance.choice([long, long, short])}"
        street += [element("name", f"{base} {long}", typed, f"{base} {short}"), suffix(chance)]
    return written(chance, street, units(chance))


def highway(chance, state):
    n = str(chance.choice([chance.randint(1, 99), chance.randint(1, 1999)]))
    long_state = STATES.get(state, "Ohio")
    rows = [("US HIGHWAY", ["US Hwy", "U.S. Highway", "US", "US Highway", "U.S. Hwy."]),
            ("STATE HIGHWAY", ["State Hwy", "State Highway", "St Hwy"]),
            ("STATE ROUTE", ["State Route", "State Rte", "St Rt"]),
            ("STATE ROAD", ["State Road", "State Rd"]),
            ("COUNTY ROAD", ["County Road", "County Rd", "Co Rd", "CR", "Cnty Rd"]),
            ("COUNTY HIGHWAY", ["County Hwy", "County Highway", "Cnty Hwy"]),
            ("HIGHWAY", ["Highway", "Hwy", "Hwy."]),
            ("ROUTE", ["Route", "Rt", "Rte", "Rte."]),
            ("INTERSTATE", ["Interstate", "I-", "Interstate Hwy"]),
            ("TOWNSHIP ROAD", ["Township Road", "Township Rd"]),
            ("ROAD", ["Road", "Rd"])]
    if state == "TX":
        rows += [("FM", ["FM", "Farm to Market", "F.M."]), ("RANCH ROAD", ["Ranch Road", "Ranch Rd"]), ("LOOP", ["Loop"])]
    if state in ("TX", "KY", "GA"):
        rows += [(f"{state} HIGHWAY", [f"{state} Hwy", f"{state} Highway", f"{long_state} Highway", long_state])]
    standard, forms = chance.choice(rows)
    form = chance.choice(forms)
    typed = f"{form}{'' if form.endswith('-') else ' '}{n}"
    also = [f"{way} {n}" for way in forms if not way.endswith("-")]
    if standard == "INTERSTATE":
        also += [f"I {n}", f"I{n}"]
    street = [number(chance, high=29999)]
    if chance.random() < 0.12:
        street.append(directional(chance))
    street.append(element("name", f"{standard} {n}", typed, *also))
    if chance.random() < 0.18:
        street.append(directional(chance))
    return written(chance, street, units(chance, 0.12))


def grid(chance, state):
    if state == "WI":
        parts = [f"{chance.choice('NS')}{chance.randint(1, 99)}", f"{chance.choice('EW')}{chance.randint(100, 29999)}"]
        house = element("number", "".join(parts), chance.choice(["".join(parts), " ".join(parts)]), " ".join(parts))
        return common_street(chance, state, house, 0, 0)
    first, second = chance.choice([("EW", "NS"), ("NS", "EW")])
    way, end = chance.choice(first), chance.choice(second)
    long, short = chance.random() < 0.5, str(chance.randint(1, 99) * 100)
    street = [number(chance), element("directional", way, DIRECTIONS[way][0].title() if long else way),
              name(short), element("directional", end, DIRECTIONS[end][0].title() if long else end)]
    return written(chance, street, units(chance))


def hyphenated_number(chance, state):
    value = f"{chance.randint(10, 289)}-{chance.randint(1, 99):02d}"
    return common_street(chance, state, element("number", value, value))


def fraction(chance, state):
    value, half = chance.randint(1, 999), chance.choice(["1/2", "1/2", "1/4", "3/4"])
    standard = f"{value} {half}"
    typed = chance.choice([standard] * 4 + [f"{value}-{half}"] + [f"{value}½"] * (half == "1/2"))
    return common_street(chance, state, element("number", standard, typed))


def lettered_number(chance, state):
    value = f"{chance.randint(1, 999)}{chance.choice('ABCD')}"
    return common_street(chance, state, element("number", value, value))


def number_in_words(chance, state):
    return common_street(chance, state, element("number", "1", "One"))


def building_above(chance, state):
    """The name of the building on a line between names and street."""
    street, unit_elements, lines = common_street(chance, state)
    above = chance.choice(["Empire State Building", "Court House", "Terminal Tower", "Two Liberty Place", "Mill Run Center",
                           "Rockefeller Center", "Building 19", "Park Plaza"])
    return street, unit_elements, lines, [above]


def box(chance, state):
    value = str(chance.choice([chance.randint(1, 999), chance.randint(1, 99999)])) + chance.choice([""] * 15 + ["A", "B"])
    typed = chance.choice(["PO Box "] * 8 + ["P.O. Box "] * 6 + ["P O Box ", "P.O.Box ", "Post Office Box ", "POB ", "PO Box #",
                          "PO Box No. ", "Box ", "PO Drawer ", "Drawer ", "P. O. Box "])
    return [element("name", f"PO BOX {value}", typed + value)], [], [typed + value]


def box_after_street(chance, state):
    """Two addresses: mail goes to the lower one, and the other stays."""
    street, _, lines = box(chance, state)
    return street, [], lines, [f"{chance.randint(1, 999)} {chance.choice(['MAIN', 'OAK', 'ELM'])} {chance.choice(['ST', 'AVE'])}"]


def route(chance, state):
    n, b = chance.randint(1, 9), str(chance.randint(1, 400)) + chance.choice(["", "", "A", "B"])
    kind, typed = chance.choice([("RR", "RR"), ("RR", "R.R."), ("RR", "Rural Route"), ("RR", "RFD"), ("HC", "HC"),
                                 ("RR", "RR"), ("HC", "HC"), ("HC", "Star Route")])
    sign = chance.choice(["", "", "", ",", " #"])
    text = f"{typed} {n}{',' if sign == ',' else ''} Box {'#' if sign == ' #' else ''}{b}"
    return [element("route", f"{kind} {n} BOX {b}", text)], [], [text]


def general_delivery(chance, state):
    return [element("name", "GENERAL DELIVERY", "General Delivery")], [], ["General Delivery"]


def military(chance, state):
    kind = chance.choice(["PSC", "PSC", "UNIT", "CMR"])
    n, b = chance.randint(1, 9999), chance.randint(1, 9999)
    shown = kind.title() if kind == "UNIT" else kind
    typed = chance.choice([f"{shown} {n} Box {b}"] * 6 + [f"{shown} {n}, Box {b}", f"{shown} # {n}, Box # {b}",
                                                         f"{shown} {n} BOX {b}"])
    return [element("name", f"{kind} {n} BOX {b}", typed, f"{kind} # {n} BOX # {b}")], [], [typed]


def puerto_rico(chance, state):
    form = chance.randrange(7)
    street_name = chance.choice(SPANISH)
    value = str(chance.randint(1, 999))
    block = f"{chance.choice('ABCDEF')}{chance.randint(1, 30)}"
    above = []
    if form == 0:
        parts = [element("number", value, value), name(f"Calle {street_name}")]
    elif form == 1:
        parts = [element("number", block, chance.choice([block, f"{block[0]}-{block[1:]}"])), name(f"Calle {chance.randint(1, 40)}")]
        above = [f"Urb {chance.choice(['Las Gladiolas', 'Los Olmos', 'El Prado'])}"]
    elif form == 2:
        long = chance.choice(["Avenida", "Ave", "Ave."])
        street_name = chance.choice(["FD Roosevelt", "Ponce de León", "Isla Verde", "Muñoz Rivera"])
        standard = "AVE " + street_name.replace("ó", "o").replace("ñ", "n")
        parts = [element("number", value, value), element("name", standard, f"{long} {street_name}", "AVENIDA" + standard[3:])]
    elif form == 3:
        typed = f"{chance.choice(['Carretera', 'Carr', 'Carr.'])} {chance.randint(2, 200)}"
        parts = [element("number", value, value), element("name", "CARR " + typed.split()[1], typed, "CARRETERA " + typed.split()[1])]
    elif form == 4:
        parts = [element("number", value, value), name(f"Paseo {chance.choice(['del Rey', 'de la Fuente', 'Real'])}")]
    elif form == 5:  # the number after the street
        street_name = chance.choice(["Sol", "Luna", "Cristo"])
        typed = f"Calle {street_name} #{value}"
        return [element("name", f"{value} CALLE {street_name}", typed)], [], [typed]
    else:
        return box(chance, state)
    return (*written(chance, parts, units(chance, 0.12)), above)


FORMS = [  # share, form, name
    (48, common_street, "street"), (8, numbered_street, "numbered street"),
    (2.5, name_without_suffix, "no suffix"), (2.5, directional_as_name, "directional as name"),
    (2.5, suffix_as_name, "suffix as name"), (6, highway, "highway"), (2, grid, "grid"),
    (2, hyphenated_number, "hyphenated number"), (1.5, fraction, "fraction"), (2, lettered_number, "number with letter"),
    (0.5, number_in_words, "number in words"), (1, building_above, "building above"), (10, box, "box"),
    (0.7, box_after_street, "box after street"), (3, route, "route"), (0.2, general_delivery, "general delivery"),
]
LEFT_ALONE = {"route", "general delivery"}  # clients cannot ask about these


def choose_form(chance, state):
    """Returns a form used in the state, and its name."""
    if state in ("AA", "AE", "AP"):
        return military, "military"
    if state == "PR":
        return (puerto_rico, "Puerto Rico") if chance.random() < 0.85 else (route, "route")
    if state in ("UT", "WI") and chance.random() < 0.15:
        return grid, "grid"
    _, form, title = chance.choices(FORMS, [row[0] for row in FORMS])[0]
    if title == "grid" and state not in ("UT", "WI"):
        return common_street, "street"
    return form, title
