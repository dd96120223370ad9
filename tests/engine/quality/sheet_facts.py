# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads an .xlsx file: the typed values of the cells that are shown and printed."""
import datetime
import re
import warnings

import text_match

DATE_LETTERS = re.compile("[ymdh]|ss")
QUOTED = re.compile(r'"[^"]*"|\[[^\]]*\]|\\.|_.')
CURRENCY = re.compile(r"[()%\s\u2212+\-$€£¥]|USD|EUR|GBP|Rs\.?|kr|DM")


def shown_number(number, form):
    """The number rounded as its format shows it."""
    if form in ("", "General") or re.search("general|e|/", form):
        return number
    decimals = re.search(r"[0#?]\.([0#?]+)", form)
    return round(number, (len(decimals.group(1)) if decimals else 0) + (2 if "%" in form else 0))


def shown_date(moment, form):
    """The date or time with the parts that its format shows."""
    if isinstance(moment, datetime.timedelta):
        minutes = int(moment.total_seconds()) // 60
        return "%02d:%02d" % (minutes // 60, minutes % 60)
    if isinstance(moment, datetime.time) or "d" not in form and "y" not in form:
        return moment.strftime("%H:%M")
    return moment.strftime("%Y-%m-%d" if "d" in form else "%Y-%m")


def typed(cell):
    """("number", value), ("date", text) or ("text", text); None for an empty cell."""
    value = cell.value
    form = QUOTED.sub("", (cell.number_format or "").split(";")[0])
    if value is None or cell.data_type == "e":
        return None
    if isinstance(value, bool) or value in ("TRUE", "FALSE"):
        return "number", 1.0 if value in (True, "TRUE") else 0.0
    if isinstance(value, (datetime.datetime, datetime.date, datetime.time, datetime.timedelta)):
        return "date", shown_date(value, form.lower())
    if isinstance(value, (int, float)):
        if form == "@":
            return "text", text_match.normalised("%.15g" % value)
        return "number", shown_number(float(value), "General" if form == "General" else form.lower())
    text = text_match.normalised(str(value))
    return ("text", text) if text else None


def numbers_in(text):
    """The numbers that a text may represent, with a decimal point or a decimal comma."""
    text = text_match.normalised(text)
    negative = text.startswith(("(", "-", "\u2212")) or text.endswith("-")
    scale = (-1 if negative else 1) / (100 if "%" in text else 1)
    digits = CURRENCY.sub("", text)
    found = []
    if re.fullmatch(r"[\d,]*\.?\d+|\d[\d,]*\.?", digits):
        found.append(digits.replace(",", ""))
    if re.fullmatch(r"[\d.]*,?\d+", digits):
        found.append(digits.replace(".", "").replace(",", "."))
    return [float(each) * scale for each in dict.fromkeys(found)]


def _printed(sheet):
    """A predicate of (row, column): whether the cell is shown and in the printed area."""
    from openpyxl.utils import column_index_from_string, range_boundaries

    hidden_rows = {row for row, each in sheet.row_dimensions.items() if each.hidden}
    hidden_columns = set()
    for letters, each in sheet.column_dimensions.items():
        if each.hidden:
            first = each.min or column_index_from_string(letters)
            hidden_columns.update(range(first, (each.max or first) + 1))
    areas = sheet.print_area or []
    if isinstance(areas, str):
        areas = areas.split(",")
    boxes = [range_boundaries(each.rpartition("!")[2].replace("$", "")) for each in areas if each]
    boxes = [box for box in boxes if None not in box]

    def printed(row, column):
        if row in hidden_rows or column in hidden_columns:
            return False
        return not boxes or any(left <= column <= right and top <= row <= bottom for left, top, right, bottom in boxes)

    return printed


class SheetFacts:
    """sheets: a dictionary {(row, column): (kind, value)} for each sheet that is not hidden."""

    def __init__(self, path):
        import openpyxl

        self.sheets = []
        with warnings.catch_warnings():
            warnings.simplefilter("ignore")  # it names what it does not know of office programs' extensions
            workbook = openpyxl.load_workbook(path, data_only=True)
        for sheet in workbook.worksheets:
            if sheet.sheet_state != "visible":
                continue
            printed = _printed(sheet)
            cells = {}
            for row in sheet.iter_rows():
                for cell in row:
                    content = typed(cell)
                    if content and printed(cell.row, cell.column):
                        cells[cell.row, cell.column] = content
            self.sheets.append(cells)

    def cells(self, kind):
        return [value for sheet in self.sheets for each, value in sheet.values() if each == kind]

    def words(self):
        """The words of all cells, numbers as they would be printed."""
        found = []
        for sheet in self.sheets:
            for kind, value in sheet.values():
                found += text_match.words("%.12g" % value if kind == "number" else value)
        return found
