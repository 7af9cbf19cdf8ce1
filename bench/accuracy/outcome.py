"""What became of each row, and the tables of it."""

from collections import Counter
from dataclasses import dataclass

from base_list import MISTAKES, NO_MISTAKE
from judge import judge
from traits import telling_traits

RIGHT, WRONG, REFUSED, DOUBTFUL, LEFT, KEPT, OPEN = (
    "right", "wrongly changed", "wrongly refused", "doubtful", "left alone", "mistake left in", "not confirmed")
NOT_CONFIRMED = ("unit-missing", "unit-not-known", "number-not-known")


@dataclass
class Outcome:
    row: object
    kind: str
    cause: str      # the first thing wrong, or what the program said
    got: str        # the text it gave
    other_form: bool = False  # right, but not as Publication 28 writes it
    unstable: str = ""        # the text of the second pass, if it is different


def outcome_of(row, record):
    status, got = record["status"], record["fixed"]
    reason = record.get("reason") or record.get("result") or ""
    if row.left_alone and (status == 3 or (status == 0 and got == row.text)):
        return Outcome(row, LEFT, reason, got)
    if status == 3:
        return Outcome(row, REFUSED, reason, got)
    if status == 2:
        return Outcome(row, DOUBTFUL, reason, record.get("proposed", ""))
    verdict = judge(got, row.truth)
    if not verdict.wrong and (status == 0 or row.answers == 1):
        return Outcome(row, RIGHT, "", got, not verdict.standard)
    if row.typed and not judge(got, row.typed).wrong:
        return Outcome(row, OPEN if record["confirmation"] in NOT_CONFIRMED else KEPT, "", got)
    return Outcome(row, WRONG, verdict.wrong or "guessed", got)


def mark_unstable(outcomes, fix):
    """Fixes the fixed labels again: any change or refusal counts as unstable."""
    again = [each for each in outcomes if each.kind in (RIGHT, WRONG, KEPT, OPEN) and each.got != each.row.text]
    for each, record in zip(again, fix([each.got for each in again])):
        if record["status"] > 1 or record["fixed"] != each.got:
            each.unstable = record["fixed"] or f"status {record['status']}: {record.get('reason') or record['result']}"


def _percent(part, whole):
    return f"{100 * part / whole:.1f} %" if whole else "–"


def _table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    return "\n".join(lines + ["| " + " | ".join(map(str, row)) + " |" for row in rows])


def plain_table(outcomes):
    groups = sorted({each.row.group for each in outcomes})
    rows = []
    for group in [*groups, None]:
        own = [each for each in outcomes if group in (None, each.row.group)]
        kinds = Counter(each.kind for each in own)
        rows.append([group or "**all**", len(own), kinds[RIGHT], sum(each.other_form for each in own), kinds[WRONG],
                     kinds[REFUSED], kinds[DOUBTFUL], kinds[LEFT], sum(bool(each.unstable) for each in own)])
    return _table(["form", "rows", "right", "of these in another form", "wrongly changed", "wrongly refused", "doubtful",
                   "left alone", "unstable"], rows)


def base_table(outcomes):
    rows = []
    for group in [NO_MISTAKE, *MISTAKES, None]:
        own = [each for each in outcomes if group in (None, each.row.group)]
        one = [each for each in own if each.row.answers == 1]
        kinds = Counter(each.kind for each in one)
        others = Counter(each.kind for each in own if each.row.answers != 1)
        rows.append([group or "**all**", len(own), len(one), kinds[RIGHT], _percent(kinds[RIGHT], len(one)), kinds[WRONG],
                     kinds[REFUSED], kinds[DOUBTFUL], kinds[OPEN], kinds[KEPT], len(own) - len(one), others[WRONG], others[OPEN],
                     others[KEPT],
                     sum(bool(each.unstable) for each in own)])
    return _table(["mistake", "rows", "one right answer", "right", "", "wrongly changed", "refused", "doubtful",
                   "left in, not confirmed", "left in", "no or several answers", "of these changed",
                   "of these left in, not confirmed", "of these left in", "unstable"], rows)


def plain_figures(outcomes):
    """The figures that may only get lower. Doubtful rows are counted with those that went wrong, so
    that wrong answers may turn into doubtful ones."""
    kinds = Counter(each.kind for each in outcomes)
    return {"wrongly changed": kinds[WRONG], "wrongly changed, refused or doubtful": kinds[WRONG] + kinds[REFUSED] + kinds[DOUBTFUL],
            "unstable": sum(bool(each.unstable) for each in outcomes)}


def base_figures(outcomes):
    kinds = Counter(each.kind for each in outcomes)
    figures = {"wrongly changed": kinds[WRONG], "unstable": sum(bool(each.unstable) for each in outcomes)}
    for group in [NO_MISTAKE, *MISTAKES]:
        own = [each for each in outcomes if each.row.group == group]
        if group == "number swapped":  # has no right answer
            figures["neither refused nor doubtful: " + group] = sum(each.kind not in (REFUSED, DOUBTFUL) for each in own)
        else:
            figures["not right: " + group] = sum(each.kind != RIGHT for each in own if each.row.answers == 1)
    others = [each for each in outcomes if each.row.answers > 1]
    figures["neither refused nor doubtful: several answers"] = sum(each.kind not in (REFUSED, DOUBTFUL) for each in others)
    return figures


def causes(outcomes, count):
    """The most frequent faults, each with what its rows have in common and an example."""
    bad = [each for each in outcomes if each.kind not in (RIGHT, LEFT)]
    told = {}
    for kind in {each.kind for each in bad}:
        of_kind = {id(each.row) for each in bad if each.kind == kind}
        told.update(telling_traits([each.row for each in outcomes], lambda row: id(row) in of_kind))
    key = {id(each): (each.kind, told[id(each.row)], each.cause) for each in bad}
    first = {}
    for each in bad:
        first.setdefault(key[id(each)], each)
    rows = []
    for cause, times in Counter(key.values()).most_common(count):
        example = first[cause]
        rows.append([times, *cause, example.row.text.replace("\n", " / "), example.got.replace("\n", " / ")])
    return _table(["rows", "kind", "in common", "first wrong", "typed", "got"], rows)


def bad_row(each):
    """A bad row as a JSON object on one line."""
    label = each.row.truth
    truth = [*label.above, " ".join(part.standard for part in label.street + label.units),
             " ".join(part.standard for part in (label.city, label.state, label.zip)), *label.below]
    return {"kind": each.kind, "group": each.row.group, "cause": each.cause, "answers": each.row.answers, "typed": each.row.text,
            "truth": "\n".join(truth), "got": each.got, "second pass": each.unstable}
