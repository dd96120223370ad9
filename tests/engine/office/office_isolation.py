# SPDX-License-Identifier: GPL-3.0-or-later
"""The engine leaves the installation of LibreOffice and the system's temporary folder as they were, and works for a user
who may not write there. Runs as root in a private mount namespace, where every folder that it or LibreOffice could
change is covered by an overlay, so that the machine itself stays as it is.

    office_isolation.py ENGINE SAMPLES installation|closed_cache|sockets
"""
import ctypes
import os
import pathlib
import pwd
import random
import shutil
import stat
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
import core_support  # noqa: E402

INSTALLATION = pathlib.Path("/usr/lib/libreoffice")
FONT_CACHE = pathlib.Path("/var/cache/fontconfig")
CLONE_NEWNS, MS_REC, MS_PRIVATE = 0x00020000, 0x4000, 1 << 18
ONE_OF_EACH_COMPONENT = ("doc", "docx", "xls", "ppt")


def not_run(why):
    print("not run:", why)
    sys.exit(core_support.SKIPPED)


def enter_private_namespace():
    if os.geteuid() != 0:
        not_run("needs root for a mount namespace and for running as other users")
    if not (INSTALLATION / "program/soffice.bin").exists():
        not_run(f"LibreOffice is not in {INSTALLATION}")
    libc = ctypes.CDLL(None, use_errno=True)
    if libc.unshare(CLONE_NEWNS) != 0 or libc.mount(b"none", b"/", None, MS_REC | MS_PRIVATE, None) != 0:
        not_run("no mount namespace: " + os.strerror(ctypes.get_errno()))


def mount(*arguments):
    done = subprocess.run(["mount", *arguments], capture_output=True, text=True, check=False)
    if done.returncode != 0:
        not_run("cannot mount: " + done.stderr.strip())


class Isolation(core_support.Suite):
    """A namespace in which LibreOffice appears never to have been started."""

    def __init__(self):
        enter_private_namespace()
        super().__init__()
        self.scratch = self.fresh("scratch")
        mount("-t", "tmpfs", "tmpfs", str(self.scratch))
        linked = {path.resolve() for path in INSTALLATION.rglob("*") if path.is_symlink() and path.is_dir()}
        for path in sorted({INSTALLATION, FONT_CACHE, *linked}):
            if path.is_dir():
                self.cover(path)
        self.cache = (INSTALLATION / "share/uno_packages/cache").resolve()
        shutil.rmtree(self.cache / "uno_packages", ignore_errors=True)
        # Other users must have access to the engine and the document, wherever the build folder is.
        self.folder.chmod(0o711)
        self.engine = shutil.copy(self.engine, self.folder / "engine")
        self.document = pathlib.Path(shutil.copy(self.samples / "report.pdf", self.folder / "report.pdf"))
        self.document.chmod(0o644)
        os.umask(0o022)

    def cover(self, path):
        layers = self.scratch / str(len(list(self.scratch.iterdir())))
        for name in ("upper", "work"):
            (layers / name).mkdir(parents=True)
        shutil.copystat(path, layers / "upper")
        mount("-t", "overlay", "overlay", "-o", f"lowerdir={path},upperdir={layers}/upper,workdir={layers}/work", str(path))

    def start(self, user, output, temp):
        """Starts a conversion with this user ID."""
        return subprocess.Popen(
            ["setpriv", f"--reuid={user}", f"--regid={user}", "--clear-groups", str(self.engine), "-l", "1", "-call",
             str(self.document), str(output)], stderr=subprocess.PIPE, start_new_session=True, cwd="/",
            env={"PATH": os.environ["PATH"], "TMPDIR": str(temp), "HOME": "/nonexistent"})

    def convert_as(self, user, output, temp):
        process = self.start(user, output, temp)
        line = process.communicate(timeout=core_support.WAIT)[1].decode(errors="replace")
        self.check(process.returncode == 0 and output.exists(), "user", user, output.name, process.returncode, line)

    def owned_folder(self, name, user):
        path = self.fresh(name)
        os.chown(path, user, user)
        return path


def tree(root):
    """Names, kinds, modes, owners, sizes and times of change of everything below, links followed."""
    found = {}
    for folder, folders, files in os.walk(root, followlinks=True):
        for name in (".", *folders, *files):
            path = os.path.join(folder, name)
            try:
                status = os.stat(path)
            except FileNotFoundError:  # a link to nothing
                status = os.lstat(path)
            found[path] = (stat.filemode(status.st_mode), status.st_uid, status.st_gid, status.st_size, status.st_mtime_ns)
    return found


def installation(suite):
    """As root, who can write everywhere, starting with empty caches."""
    for path in FONT_CACHE.glob("*.cache-*"):
        path.unlink()
    before = tree(INSTALLATION)
    suite.check(len(before) > 1000, "only", len(before), "files in", INSTALLATION)
    folder = suite.fresh("out")
    for extension in ONE_OF_EACH_COMPONENT:
        suite.convert_as(0, folder / f"o.{extension}", suite.temp)
    after = tree(INSTALLATION)
    for path in sorted(before.keys() | after.keys()):
        suite.check(before.get(path) == after.get(path), path, "was", before.get(path), "and is", after.get(path))
    for path in FONT_CACHE.glob("*"):
        suite.check(path.stat().st_mode & stat.S_IROTH, path, "cannot be read by other users")


def closed_cache(suite):
    """As an ordinary user, after LibreOffice, run by root, has left inaccessible folders."""
    user = pwd.getpwnam("nobody").pw_uid
    folder = suite.owned_folder("out", user)
    temp = suite.owned_folder("user-temp", user)
    (suite.cache / "uno_packages").mkdir(mode=0o700)
    for extension in ONE_OF_EACH_COMPONENT:
        suite.convert_as(user, folder / f"o.{extension}", temp)
    suite.cache.chmod(0o700)
    suite.convert_as(user, folder / "closed.docx", temp)
    suite.check(not list(temp.iterdir()), "left:", list(temp.iterdir()))


def user_without_entry():
    while True:
        user = random.randrange(100_000, 2_000_000_000)
        try:
            pwd.getpwuid(user)
        except KeyError:
            return user


def sockets_of(user):
    found = []
    for folder in ("/tmp", "/var/tmp"):
        for entry in os.scandir(folder):
            try:
                if entry.name.startswith("OSL_PIPE_") and entry.stat(follow_symlinks=False).st_uid == user:
                    found.append(entry.path)
            except FileNotFoundError:
                continue  # of a run that ended meanwhile
    return found


def sockets(suite):
    """A killed run leaves LibreOffice's socket behind; the next run removes it."""
    known = pwd.getpwnam("nobody").pw_uid
    places = [(user_without_entry(), "plain"), (known, "plain")]
    places += [(user_without_entry(), name) for name in ("with space", "caf\u00e9 100%41 #1", "a'(b)~!$&+,=@[c]", "a;b|c",
                                                      "link")]
    for number, (user, name) in enumerate(places):
        around = suite.owned_folder(f"sockets{number}", user)
        temp = around / name
        if name == "link":
            suite.owned_folder(f"sockets{number}/target", user)
            temp.symlink_to("target")
        else:
            suite.owned_folder(temp.relative_to(suite.folder), user)
        before = set(sockets_of(user))
        process = suite.start(user, around / "o.doc", temp)
        deadline = time.monotonic() + core_support.WAIT
        while not set(sockets_of(user)) - before and process.poll() is None and time.monotonic() < deadline:
            time.sleep(0.002)
        process.kill()
        process.communicate()
        suite.check(set(sockets_of(user)) - before, "user", user, "in", name, "had no socket to leave behind")
        suite.convert_as(user, around / "o.doc", temp)
        left = set(sockets_of(user)) - before
        suite.check(not left, "user", user, "in", name, "left", left)
        for path in left:
            os.unlink(path)


def main():
    suite = Isolation()
    {"installation": installation, "closed_cache": closed_cache, "sockets": sockets}[sys.argv[3]](suite)
    subprocess.run(["umount", str(suite.scratch)], check=False, stderr=subprocess.DEVNULL)
    suite.end()


main()
