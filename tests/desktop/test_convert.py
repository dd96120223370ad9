# SPDX-License-Identifier: GPL-3.0-or-later
"""Each output kind, converted once by the real engine from the real window."""

import unittest

from desktop_case import BINARIES, DesktopCase

# Output kind, file that must appear, its first bytes.
OUTPUTS = [
    ("PDF to Word", "report.doc", b"\xd0\xcf\x11\xe0"),
    ("PDF to Excel", "report.xls", b"\xd0\xcf\x11\xe0"),
    ("PDF to PPT", "report.pptx", b"PK\x03\x04"),
    ("PDF to HTML", "report.html", b"<!DOCTYPE html"),
    ("PDF to XML", "report.xml", b"<?xml"),
    ("PDF to PostScript", "report.ps", b"%!PS-Adobe"),
    ("PDF to EPS", "report0004.eps", b"%!PS-Adobe-3.0 EPSF"),
    ("PDF to Text", "report.txt", b"Yearly report"),
    ("PDF to Image", "report0004.tiff", b"II*\x00"),
]


class Convert(DesktopCase):
    def test_every_kind(self):
        names = self.samples("two-columns.pdf", "report.pdf")
        converter = self.converter()
        converter.add(self.inputs, names)
        converter.choose(self.output)
        for kind, name, begin in OUTPUTS:
            with self.subTest(kind):
                converter.pick(kind)
                converter.start()
                converter.wait_for_end()
                extension = name[name.index("."):]
                self.assertTrue((self.output / ("two-columns" + extension)).is_file(), "first file of the list")
                self.assertEqual((self.output / name).read_bytes()[:len(begin)], begin)
        self.picture("every-kind", converter.window)
        self.assertEqual(converter.close(), 0)

    def test_password_from_the_dialog(self):
        names = self.samples("password.pdf")
        converter = self.converter()
        converter.pick("PDF to Text")
        converter.add(self.inputs, names)
        converter.choose(self.output)
        converter.start()
        converter.wait_for_end()
        self.assertEqual(list(self.output.iterdir()), [], "without the password nothing is written")
        converter.set_user_password("quorra")
        converter.start()
        converter.wait_for_end()
        self.assertIn("Yearly report", (self.output / "password.txt").read_text())


if __name__ == "__main__":
    if not (BINARIES / "Qtminw").exists():
        raise SystemExit(77)
    unittest.main()
