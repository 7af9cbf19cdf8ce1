#!/usr/bin/env python3
"""The lines that docs/python.md shows, run by the tests."""

# guide: parse
import postwright

address = postwright.parse("Jane Doe\n12 n main street apt 4\naustin, texas 78701")
assert address is not None  # where there is none
assert address.street_line == "12 N MAIN ST APT 4"
assert (address.city, address.state, address.zip) == ("AUSTIN", "TX", "78701")
# guide: end

# guide: fix
fix = postwright.fix("Jane Doe\n12 n main street apt 4\naustin, texas 78701")
assert fix.status is postwright.Status.FIXED
assert fix.text == "Jane Doe\n12 N MAIN ST APT 4\nAUSTIN TX 78701"
assert not fix.confirmed  # no address base: nobody has checked the street
assert fix.confirmation is postwright.Confirmation.FORM_ONLY
# guide: end

# guide: doubt
fix = postwright.fix("2870 South West Temple, Madison WI 53703")
assert fix.status is postwright.Status.UNDECIDED
assert fix.text == "2870 South West Temple, Madison WI 53703"  # as it was typed
assert fix.proposed == "2870 S WEST TEMPLE\nMADISON WI 53703"
assert fix.reason == "directional-unexplained"
# guide: end

# guide: outcomes
def take(label):
    fix = postwright.fix(label)
    match fix.status:
        case postwright.Status.UNCHANGED | postwright.Status.FIXED:
            return fix.text
        case postwright.Status.UNDECIDED:
            return ask_a_person(label, fix.proposed, fix.reason_text)
        case postwright.Status.TURNED_DOWN:
            return tell(label, fix.reason_text)
        case postwright.Status.UNANSWERED:
            return ask_again_later(label)
# guide: end


def ask_a_person(label, proposed, why):
    return f"{proposed}? {why}"


def tell(label, why):
    return why


def ask_again_later(label):
    return label


assert take("12 Oak St\nBoston MA 2108").startswith("The ZIP code has four digits")
labels = ["12 n main street\naustin tx 78701", "ring twice"]

# guide: many
for fix in postwright.fix_many(labels, jobs=2):
    print(fix.status.name, fix.text, fix.reason, sep="\t")
# guide: end

# guide: pandas
import pandas
import postwright.pandas

frame = pandas.DataFrame({"donor": ["Jane Doe", "Ann Lee"], "street": ["12 n main street", "1 Elm"],
                          "town": ["austin", "Boston"], "st": ["texas", "MA"], "zip": ["78701", ""]})
fixed = frame.postwright.fix(name="donor", street="street", city="town", state="st", zip="zip")
assert list(fixed.status) == ["fixed", "turned_down"]
assert list(fixed.reason) == ["", "zip-missing"]
assert fixed.street_line[0] == "12 N MAIN ST"
frame = frame.join(fixed.add_prefix("fixed_"))
parts = frame.postwright.parse("street", "donor")  # a label of these lines
# guide: end

# guide: explain
for change in postwright.explain("12 north main street\naustin tx 78701",
                                 "12 N MAIN ST\nAUSTIN TX 78701"):
    print(change.rule, change.typed.text, change.corrected.text, change.doubt)
# guide: end
