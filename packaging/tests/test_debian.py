# SPDX-License-Identifier: GPL-3.0-or-later
"""The Debian package, in use by two ordinary users who cannot write where it lies.

Root installs it for real and takes it away again; any other user, or one who has the package installed already,
unpacks it to a folder that cannot be written.
"""

import fcntl
import os
import shutil
import subprocess
import unittest
from pathlib import Path

from desktop import LIMIT, wait_for
from package_case import AS_ROOT, MANUAL_PAGES, MODULE, PROGRAM_FILES, SAMPLE_TEXT, SHARED_FILES, PackageCase, User, only_package

NAME = "quorra-converter"


def dpkg(*words):
    """Runs dpkg as soon as no other package manager is at work."""
    def attempt():
        done = subprocess.run(["dpkg", *map(str, words)], text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              env={**os.environ, "LC_ALL": "C", "DEBIAN_FRONTEND": "noninteractive"})
        if done.returncode != 0 and "lock" not in done.stdout:
            raise AssertionError(done.stdout)
        return done.returncode == 0
    wait_for("the lock of dpkg", attempt, 300)


def is_installed():
    return subprocess.run(["dpkg-query", "-W", NAME], stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL).returncode == 0


class Debian(PackageCase):
    def setUp(self):
        super().setUp()
        self.package = only_package("*.deb")

    def installed_root(self):
        """Makes the package's files ready for use and returns the folder they lie under."""
        if AS_ROOT:
            # One installation at a time, however many test runs there are. The file tells of one that was killed.
            lock = open(f"/run/{NAME}-package-test.lock", "a+", encoding="ascii")
            self.addCleanup(lock.close)
            fcntl.flock(lock, fcntl.LOCK_EX)
            lock.seek(0)
            if lock.read():
                self.purge(lock)
            if not is_installed():
                lock.write("installed")
                lock.flush()
                self.addCleanup(self.purge, lock)
                dpkg("-i", self.package)
                return Path("/")
        root = self.folder / "root"
        subprocess.run(["dpkg-deb", "-x", self.package, root], check=True)
        program_folder = root / "opt" / NAME
        program_folder.chmod(0o555)
        self.addCleanup(program_folder.chmod, 0o755)
        return root

    def purge(self, lock):
        if Path("/opt", NAME).is_dir():
            # As the superuser leaves it who has used the program.
            Path("/opt", NAME, "settingquorra.ini").touch()
        dpkg("--purge", NAME)
        lock.truncate(0)
        self.assertFalse(Path("/opt", NAME).exists())
        for name in PROGRAM_FILES:
            self.assertFalse(Path("/usr/bin", name).is_symlink())

    def test_control_fields(self):
        fields = dict(line.split(": ", 1) for line in subprocess.run(
            ["dpkg-deb", "-f", self.package], check=True, text=True, stdout=subprocess.PIPE).stdout.splitlines()
            if ": " in line and not line.startswith(" "))
        self.assertEqual(fields["Package"], NAME)
        self.assertEqual(fields["Version"], os.environ["QUORRA_VERSION"] + "-1")
        needed = {word.split()[0] for word in fields["Depends"].split(", ")}
        self.assertLessEqual({"poppler-data", "fonts-liberation", "libreoffice-writer-nogui",
                              "libreoffice-calc-nogui", "libreoffice-impress-nogui", "tesseract-ocr-eng"}, needed)
        # The ends of their names differ between releases of Debian.
        for library in ("libqt6widgets6", "libqt6gui6", "libqt6core6", "libpoppler", "libtesseract", "liblept"):
            self.assertTrue(any(word.startswith(library) for word in needed), needed)
        self.assertIn("tesseract-ocr-osd", fields["Suggests"])

    def test_files_and_their_owners(self):
        listing = subprocess.run(["dpkg-deb", "-c", self.package], check=True, text=True,
                                 stdout=subprocess.PIPE).stdout.splitlines()
        names = set()
        for line in listing:
            mode, owner, _, _, _, name = line.split(maxsplit=5)
            self.assertEqual(owner, "root/root")
            self.assertIn(mode, ("drwxr-xr-x", "-rwxr-xr-x", "-rw-r--r--", "lrwxrwxrwx"), line)
            if mode[0] != "d":
                names.add(name.removeprefix("./"))
        documents = {f"usr/share/doc/{NAME}/README.md", f"usr/share/doc/{NAME}/CHANGELOG.md"}
        self.assertEqual(names - documents,
                         {f"opt/{NAME}/{name}" for name in PROGRAM_FILES | {MODULE}}
                         | {f"usr/share/{name}" for name in SHARED_FILES}
                         | {f"usr/share/{name}.gz" for name in MANUAL_PAGES}
                         | {f"usr/share/doc/{NAME}/copyright"}
                         | {f"usr/bin/{name} -> /opt/{NAME}/{name}" for name in PROGRAM_FILES})

    def test_two_users_have_settings_of_their_own(self):
        root = self.installed_root()
        program_folder = root / "opt" / NAME
        # A real installation is started by the link that lies in everybody's path.
        program = Path("/usr/bin", NAME) if root == Path("/") else program_folder / NAME
        before = sorted(os.listdir(program_folder))
        users = [User(self.folder, 65534), User(self.folder, 65533)]
        # The second kind goes through the office suite, which an ordinary user must be able to run too.
        choices = [("PDF to Text", "7", ".txt"), ("PDF to Excel", "1", ".xls")]

        for user, (kind, _, extension) in zip(users, choices):
            converter = self.start(program, user, self.settings_folder(user))
            self.convert_sample(converter, user, kind)
            self.wait_for_output(user, extension)
            self.assertEqual(converter.close(), 0)
        self.assertIn(SAMPLE_TEXT, (users[0].output / "report.txt").read_text(encoding="utf-8"))
        self.assertEqual((users[1].output / "report.xls").read_bytes()[:4], b"\xd0\xcf\x11\xe0")

        for user, (_, row, extension) in zip(users, choices):
            folder = self.settings_folder(user)
            self.assert_private(folder, 0o700)
            self.assert_private(folder / "settingquorra.ini", 0o600)
            self.assertEqual(os.readlink(folder / "Qtminw"), str(program_folder / "Qtminw"))
            self.assertEqual((folder / "settingquorra.ini").stat().st_uid, user.number)
            # The next start finds what was chosen: the same kind without picking it.
            self.start_again(program, user, row, extension)
        self.assertEqual(sorted(os.listdir(program_folder)), before)

    def start_again(self, program, user, row, extension):
        shutil.rmtree(user.output)
        user.output.mkdir()
        user.own(user.output)
        converter = self.start(program, user, self.settings_folder(user))
        self.assertEqual(converter.settings()["ListWidgetCurrtentItemRow"], row)
        self.assertEqual(converter.settings()["OutputFolder"], str(user.output))
        converter.add(user.inputs, ["report.pdf"])
        converter.start()
        converter.wait_for_end(LIMIT)
        self.wait_for_output(user, extension)
        self.assertEqual(converter.close(), 0)

    def wait_for_output(self, user, extension):
        """Waits until the output folder holds a file of this kind and no other one. On a busy machine the window may look
        idle before the run has begun."""
        wait_for(f"only {extension} in the output folder",
                 lambda: {path.suffix for path in user.output.iterdir()} == {extension}, LIMIT)

    def settings_folder(self, user):
        return user.home / ".config" / NAME


if __name__ == "__main__":
    unittest.main()
