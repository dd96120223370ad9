# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads the parts and relationships of a zipped office file."""
import posixpath
import xml.etree.ElementTree as ElementTree
import zipfile

RELATIONSHIPS = "{http://schemas.openxmlformats.org/officeDocument/2006/relationships}"
FALSE = ("0", "false", "off", "none")


def _plain_names(root):
    """Strips the namespaces; an attribute of the relationships' namespace keeps the prefix "r:"."""
    for element in root.iter():
        if not isinstance(element.tag, str):
            continue
        element.tag = element.tag.rpartition("}")[2]
        for name in [each for each in element.attrib if "}" in each]:
            short = name.rpartition("}")[2]
            element.attrib["r:" + short if name.startswith(RELATIONSHIPS) else short] = element.attrib.pop(name)
    return root


class Package:
    """Parts by name, as trees without namespaces; a missing part is an empty tree."""

    def __init__(self, path):
        with zipfile.ZipFile(path) as archive:
            self._data = {name: archive.read(name) for name in archive.namelist() if name.endswith((".xml", ".rels"))}
        self._trees = {}
        self._related = {}

    def part(self, name):
        if name not in self._trees:
            data = self._data.get(name)
            self._trees[name] = ElementTree.Element("none") if data is None else _plain_names(ElementTree.fromstring(data))
        return self._trees[name]

    def related(self, name):
        """{identity: (kind, target)} of a part's relationships; the package's own for the name ""."""
        if name not in self._related:
            folder, file = posixpath.split(name)
            found = {}
            for each in self.part(posixpath.join(folder, "_rels", file + ".rels")):
                target = each.get("Target", "")
                if each.get("TargetMode") != "External":
                    target = posixpath.normpath(posixpath.join("/", folder, target)).lstrip("/")
                found[each.get("Id")] = (each.get("Type", "").rpartition("/")[2], target)
            self._related[name] = found
        return self._related[name]

    def target(self, name, identity):
        return self.related(name).get(identity, ("", ""))[1]

    def first_of_kind(self, name, kind):
        """The name of the first part of that kind that the part refers to, or ""."""
        return next((target for each, target in self.related(name).values() if each == kind), "")

    def main_part(self):
        return self.first_of_kind("", "officeDocument")

    def title(self):
        return self.part(self.first_of_kind("", "core-properties")).findtext("title") or ""


def value(element, path):
    """The attribute "val" of the element at the path; None where there is none."""
    found = element.find(path) if element is not None else None
    return None if found is None else found.get("val")


def switch(element, path):
    """A property that is on if it has no value; None if it is missing."""
    found = element.find(path) if element is not None else None
    return None if found is None else found.get("val", "1") not in FALSE


def first_said(values):
    """The first value that is not None."""
    return next((each for each in values if each is not None), None)
