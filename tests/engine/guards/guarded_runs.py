# SPDX-License-Identifier: GPL-3.0-or-later
"""All that the engine does works under its guards, wherever the program, the documents and the fonts are and whoever
runs it; and what would take the place of LibreOffice can do no harm.

    guarded_runs.py ENGINE SAMPLES PROBE pages|office
"""
import contextlib
import ctypes
import os
import pathlib
import pwd
import shutil
import socket
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
import core_support  # noqa: E402
import hand_pdf  # noqa: E402

LANDLOCK_CREATE_RULESET, PR_GET_SECCOMP = 444, 21
PAGES = ("txt", "html", "png", "ps", "eps", "tiff")
OFFICE = ("doc", "xls", "ppt")
FONT = pathlib.Path("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf")


def kernel_guards():
    """What the kernel has, asked without the engine."""
    libc = ctypes.CDLL(None, use_errno=True)
    landlock = max(0, libc.syscall(LANDLOCK_CREATE_RULESET, None, 0, 1))
    return landlock, libc.prctl(PR_GET_SECCOMP, 0, 0, 0, 0) >= 0


class Runs(core_support.Suite):
    def __init__(self):
        super().__init__()
        self.probe = pathlib.Path(sys.argv[3]).resolve()
        self.kinds = OFFICE if sys.argv[4] == "office" else PAGES
        # Other users must be able to reach what they convert.
        self.folder.chmod(0o711)
        self.document = pathlib.Path(shutil.copy(self.samples / "report.pdf", self.folder / "report.pdf"))
        self.scan = pathlib.Path(shutil.copy(self.samples / "scanned.pdf", self.folder / "scanned.pdf"))
        for path in (self.document, self.scan):
            path.chmod(0o644)
        self.program = self.unpacked(self.folder / "program")

    def unpacked(self, folder):
        """A copy of the program in this folder, as a package has it."""
        folder.mkdir(parents=True)
        for file in pathlib.Path(self.engine).parent.glob("Qtminw*"):
            shutil.copy(file, folder / file.name)
        return folder / "Qtminw"

    def all_kinds(self, what, document, folder, program=None, user=None, home="/nonexistent", kinds=None):
        """Converts to each kind; the output must be made and nothing else."""
        start = [] if user is None else ["setpriv", f"--reuid={user}", f"--regid={user}", "--clear-groups"]
        temp = self.temp
        if user is not None:
            temp = self.folder / f"tmp-{user}"
            temp.mkdir(exist_ok=True)
            os.chown(temp, user, user)
        before = set(os.listdir(folder))
        for kind in kinds or self.kinds:
            output = pathlib.Path(folder) / f"made.{kind}"
            done = subprocess.run([*start, str(program or self.program), "-l", "1", "-call", str(document), str(output)],
                                  env={"PATH": os.environ["PATH"], "TMPDIR": str(temp), "HOME": str(home)}, cwd="/",
                                  capture_output=True, text=True, timeout=core_support.WAIT, check=False)
            good = self.check(done.returncode == 0 and done.stderr == "", what, kind, done)
            made = set(os.listdir(folder)) - before
            self.check(not good or made and all(name.startswith("made") for name in made), what, kind, "made", made)
            for name in made:
                self.check((pathlib.Path(folder) / name).stat().st_size > 100, what, name, "is empty")
                (pathlib.Path(folder) / name).unlink()
        self.check(not list(temp.iterdir()), what, "left", list(temp.iterdir()))


def tells_the_guards(suite):
    """Returns the version of Landlock. A guard that the kernel has must be active."""
    landlock, seccomp = kernel_guards()
    expected = [f"Landlock {landlock}"] * (landlock > 0) + ["seccomp"] * seccomp
    text = core_support.tool(suite.engine, "--version").decode().splitlines()
    suite.check("guards: " + (", ".join(expected) or "none") in text, "the kernel has", expected, "and the engine", text)
    return landlock


def places(suite):
    suite.all_kinds("plain", suite.document, suite.fresh("out"))
    beside = suite.fresh("beside")
    suite.all_kinds("output beside the input", shutil.copy(suite.document, beside / "in.pdf"), beside)
    target = suite.fresh("target")
    (suite.folder / "link").symlink_to("target")
    (target / "in.pdf").symlink_to(suite.document)
    suite.all_kinds("links", suite.folder / "link/in.pdf", suite.folder / "link")
    (suite.folder / "started").symlink_to(suite.program)
    suite.all_kinds("started by a link", suite.document, suite.fresh("linked"), program=suite.folder / "started")
    home = suite.fresh("home")
    suite.all_kinds("unpacked in the home", suite.document, suite.fresh("home/out"),
                    program=suite.unpacked(home / "converter"), home=home)


def another_file_system(suite):
    if not os.access("/dev/shm", os.W_OK) or os.stat("/dev/shm").st_dev == os.stat(suite.folder).st_dev:
        print("not run: /dev/shm is no other file system")
        return
    with tempfile.TemporaryDirectory(prefix="quorra-test-", dir="/dev/shm") as folder:
        suite.all_kinds("another file system", suite.document, folder)


def another_user(suite):
    if os.geteuid() != 0:
        print("not run: needs root to run as another user")
        return
    user = pwd.getpwnam("nobody").pw_uid
    folder = suite.fresh("user")
    os.chown(folder, user, user)
    suite.all_kinds("another user", suite.document, folder, user=user)


def scanned_page(suite):
    """Only if the build can read it without guards, too: the sanitizers leave that out."""
    folder = suite.fresh("scan")
    suite.all_kinds("scan", suite.scan, folder, kinds=("txt", "html"))
    output = folder / "read.txt"
    suite.convert(suite.scan, output)
    suite.check("ear protection" in " ".join(output.read_text().split()), "the scanned page was not read")


def ink(path):
    """The number of dark bytes of a portable graymap."""
    return sum(value < 128 for value in path.read_bytes()[20:])


def user_fonts(suite):
    """A page whose font is not in the file has text only if a font is found; here, only the user has one."""
    if not FONT.exists():
        print("not run: there is no", FONT)
        return
    pdf = hand_pdf.HandPdf()
    pdf.set(3, b"<</Type/Font/Subtype/TrueType/BaseFont/OfTheUser/Encoding/WinAnsiEncoding>>")
    pdf.page(hand_pdf.line(50, 700, "Font of the user", 40))
    document = suite.folder / "font.pdf"
    document.write_bytes(pdf.bytes())
    home = suite.fresh("fonts-home")
    far = suite.fresh("far")
    shutil.copy(FONT, far / FONT.name)
    os.environ.pop("XDG_DATA_HOME", None)
    folders = {"none": None, "plain": home / ".fonts/f.ttf", "data": home / ".local/share/fonts/f.ttf",
               "folder linked": home / ".fonts/far"}
    for name, place in folders.items():
        shutil.rmtree(home)
        home.mkdir()
        if place:
            place.parent.mkdir(parents=True)
            if place.suffix:
                shutil.copy(FONT, place)
            else:
                place.symlink_to(far)
        configuration = home / "fonts.conf"
        configuration.write_text(f'<fontconfig><dir>~/.fonts</dir><dir prefix="xdg">fonts</dir>'
                                 f"<cachedir>{home}/cache</cachedir></fontconfig>")
        output = suite.folder / f"{name}.pgm"
        result = suite.run("-call", str(document), str(output),
                           environment={"HOME": str(home), "FONTCONFIG_FILE": str(configuration), "XDG_DATA_DIRS": "/nowhere"})
        suite.check(result.status == 0, name, result)
        suite.check((ink(output) > 1000) == bool(place), "font of the user", name, "gives ink", ink(output))


def instead_of_libreoffice(suite, landlock):
    """A program that takes the place of LibreOffice tells what it could do."""
    home = suite.fresh("victim")
    (home / "secret").write_text("secret")
    folder = suite.fresh("probe-out")
    older = folder / "older.txt"
    older.write_text("older")
    with contextlib.closing(socket.create_server(("127.0.0.1", 0))) as server, \
            contextlib.closing(socket.socket(socket.AF_UNIX)) as local:
        local.bind(str(home / "socket"))
        local.listen()
        environment = {"QUORRA_SOFFICE": str(suite.probe), "PROBE_SECRET": str(home / "secret"), "PROBE_OUTSIDE": str(home),
                       "PROBE_SOCKET": str(home / "socket"), "PROBE_PORT": str(server.getsockname()[1]),
                       "PROBE_INPUT": str(suite.document), "PROBE_OUTPUT": str(older)}
        output = folder / "made.doc"
        result = suite.run("-call", str(suite.document), str(output), environment=environment)
    if not suite.check(result.status == 0 and output.exists(), "the probe", result):
        return
    lines = output.read_text().splitlines()
    suite.check(len(lines) > 25, "only", len(lines), "attempts")
    for needs, value, name in (line.split(" ", 2) for line in lines):
        if int(needs) <= landlock:
            suite.check(value != "0", "instead of LibreOffice, it could", name)


def main():
    suite = Runs()
    landlock = tells_the_guards(suite)
    places(suite)
    another_file_system(suite)
    another_user(suite)
    if suite.kinds is PAGES:
        scanned_page(suite)
        user_fonts(suite)
        instead_of_libreoffice(suite, landlock)
    suite.end()


main()
