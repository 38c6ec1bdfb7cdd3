"""The example programs of the LCL's packages: copied, localized, built with a watching unit inside, and run.

All runs without network and without a home folder, and as nobody where root starts it: lazbuild would compile the
installed packages anew in their places.
"""
import contextlib
import json
import os
import pathlib
import pwd
import re
import shutil
import subprocess
import tempfile
import threading
import xml.etree.ElementTree as xml

HERE = pathlib.Path(__file__).resolve().parent
LAZARUS = pathlib.Path("/usr/lib/lazarus/default").resolve()
EXAMPLES = LAZARUS / "examples"
BASE, LANGUAGE = "English", "Pseudo"
# Seconds; a machine may be busy with other things.
BUILD_TIME, RUN_TIME = 1800, 600
NOBODY = pwd.getpwnam("nobody")
AS_NOBODY = {"user": NOBODY.pw_uid, "group": NOBODY.pw_gid, "extra_groups": []} if os.geteuid() == 0 else {}


def give_away(folder):
    """What root has copied is nobody's from now on."""
    for path in (folder, *folder.rglob("*")) if AS_NOBODY else ():
        os.chown(path, NOBODY.pw_uid, NOBODY.pw_gid, follow_symlinks=False)


class Failed(Exception):
    """A step did not succeed: the step and what it said."""


class TookTooLong(Failed):
    """It may be the machine."""


def run(folder, *command, environment=None, seconds=BUILD_TIME):
    try:
        done = subprocess.run([str(word) for word in command], cwd=folder, capture_output=True,
                              encoding="utf-8", errors="replace", timeout=seconds, env=environment,
                              stdin=subprocess.DEVNULL, **AS_NOBODY)
    except subprocess.TimeoutExpired:
        raise TookTooLong(f"took too long: {' '.join(str(word) for word in command)}") from None
    return done.returncode, done.stdout + done.stderr


def must(step, folder, *command, good=(0,)):
    code, output = run(folder, *command)
    if code not in good:
        raise Failed(f"{step}: {output.strip()[-1500:]}")
    return output


class Place:
    """The work folder: own copies of all that is used, and a display."""

    def __init__(self, work, program):
        self.work = work
        (work / "bin").mkdir()
        shutil.copy(program, work / "bin")
        shutil.copy(program.parent / "TmlLang_Common.so", work / "bin")
        shutil.copytree(HERE / "observer", work / "observer")
        shutil.copytree(HERE.parent / "components", work / "components", ignore=shutil.ignore_patterns("tests", "lib"))
        (work / "settings").mkdir()
        self.tmllang = work / "bin" / program.name, "--config", work / "settings"
        give_away(work)
        self.network = ("unshare", "-rn") if run(work, "unshare", "-rn", "true")[0] == 0 else ()
        self.lazbuild = "lazbuild", "-q", "-q", f"--pcp={work}/lazarus", f"--lazarusdir={LAZARUS}", "--ws=gtk2"
        os.environ["HOME"] = str(work / "home")
        must("the package", work, *self.lazbuild, "--add-package-link", work / "components" / "tmllang.lpk")
        must("the package", work, *self.lazbuild, work / "components" / "tmllang.lpk")
        self.compiled, self.compiling = set(), threading.Lock()
        reader, writer = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", "1280x1024x24", "-ac", "-noreset"],
            pass_fds=[writer], stderr=subprocess.DEVNULL, **AS_NOBODY)
        os.close(writer)
        with os.fdopen(reader) as numbers:
            self.display = ":" + numbers.readline().strip()

    def environment(self, found, language):
        return {"PATH": os.environ["PATH"], "HOME": str(self.work / "nowhere"), "DISPLAY": self.display,
                "LC_ALL": "C.UTF-8", "TMLLANG_LANGUAGE": language, "PROOF_FOLDER": str(found)}

    def close(self):
        self.server.terminate()
        self.server.wait()


@contextlib.contextmanager
def work_place(program, keep):
    """A place that is gone afterwards, unless it is to be kept."""
    work = pathlib.Path(tempfile.mkdtemp(prefix="tml-programs-"))
    work.chmod(0o755)
    place = Place(work, program)
    try:
        yield place
    finally:
        place.close()
        if not keep:
            shutil.rmtree(work, ignore_errors=True)
        if not place.network:
            print("The network was not taken away: unshare may not.")


def copy_program(program, tree):
    """The program's part of the examples, below a tree that is otherwise the installed one."""
    (tree / "examples").mkdir(parents=True)
    for part in LAZARUS.iterdir():
        if part.name != "examples":
            (tree / part.name).symlink_to(part)
    if len(program.parts) > 1:
        shutil.copytree(EXAMPLES / program.parts[0], tree / "examples" / program.parts[0])
    else:
        for file in EXAMPLES.iterdir():
            if file.is_file():
                shutil.copy(file, tree / "examples")
    # The program reads the .lfm of a form that is there in two files.
    forms = {str(form).lower() for form in tree.glob("examples/**/*.lfm")}
    for form in tree.glob("examples/**/*.dfm"):
        if str(form.with_suffix(".lfm")).lower() in forms:
            form.unlink()
    give_away(tree.parent)
    return tree / "examples" / program


def forms_of(place, project):
    """Unit, class and texts of each form."""
    forms = []
    for row in rows(place, project, "forms"):
        if "form" not in row:
            continue
        file = pathlib.Path(row["file"]).with_suffix(".lfm")
        if file.exists():
            text = must("form-text", project.parent, *place.tmllang, "form-text", file)
            forms.append((row["unit"], re.search(r":\s*(\w+)", text)[1], text))
    return forms


def link_watch(folder, unit, project, forms):
    """Has the unit linked into the project's program, with the other units of its folder and the classes of the forms,
    which are pairs of unit and class."""
    for part in (HERE / "observer" / "Programwatch.pas", *folder.glob("*.pas")):
        shutil.copy(part, project.parent)
    units = "".join(f", {unit}" for unit in dict.fromkeys(unit for unit, _ in forms))
    classes = ", ".join(f"{unit}.{name}" for unit, name in forms)
    (project.parent / "Proofclasses.pas").write_text(
        "unit Proofclasses;\n\n{$MODE ObjFPC}\n\ninterface\n\nuses\n  Classes" + units + ";\n\nvar\n"
        "  FormClasses: array of TComponentClass;\n\nimplementation\n\ninitialization\n"
        f"  FormClasses := [{classes}];\n\nend.\n")
    (project.parent / "fpc.cfg").write_text(f"#INCLUDE /etc/fpc.cfg\n-Fa{unit}\n")
    # The compiler breaks down where the program names the file of a unit that it has seen already.
    for main in (*project.parent.glob("*.lpr"), *project.parent.glob("*.dpr")):
        text = main.read_text(encoding="latin-1")
        main.write_text(re.sub(r"\b(\w+)\s+in\s+'[^'/\\]*'", r"\1", text), encoding="latin-1")


def link_observer(place, project, forms):
    link_watch(place.work / "observer", "Proofobserver", project, [(unit, name) for unit, name, _ in forms])


def programs_below(folder):
    return [file for file in folder.rglob("*") if file.is_file() and os.access(file, os.X_OK)
            and file.suffix not in (".so", ".o") and file.read_bytes()[:4] == b"\x7fELF"]


def build(place, project):
    """The program that results. One at a time compiles packages that are not compiled yet."""
    packages = {package.get("Value") for package in xml.parse(project).iter("PackageName")}
    with contextlib.nullcontext() if packages <= place.compiled else place.compiling:
        output = must("build", project.parent, *place.lazbuild, project.name)
        place.compiled |= packages
    made = programs_below(project.parent)
    if not made:
        raise Failed("build: no program: " + output[-200:])
    return max(made, key=lambda file: file.stat().st_mtime)


def build_observed(place, project, forms):
    """The program as it is, with the observer."""
    link_observer(place, project, forms)
    try:
        return build(place, project)
    except Failed as failure:
        (project.parent / "fpc.cfg").unlink()
        build(place, project)
        raise Failed(f"builds, but not with the observer: {failure}") from failure


@contextlib.contextmanager
def left_as_it_was(folder):
    """What a program writes into its folder the next run does not find."""
    kept = folder.with_name(folder.name + ".kept")
    shutil.copytree(folder, kept, symlinks=True)
    give_away(kept)
    try:
        yield
    finally:
        shutil.rmtree(folder)
        kept.rename(folder)


def watch(place, program, found, language=BASE):
    """Runs the program; what the observer wrote."""
    found.mkdir()
    give_away(found)
    with left_as_it_was(found.parent / "lazarus" / "examples"):
        code, output = run(program.parent, *place.network, program, environment=place.environment(found, language),
                           seconds=RUN_TIME)
    events = []
    if (found / "events").exists():
        events = (found / "events").read_text(encoding="utf-8", errors="replace").splitlines()
    if "done" not in events:
        raise Failed(f"run: {code}: {'; '.join(events)[-300:]} {output.strip()[-300:]}")
    return Found(found, events, code)


class Found:
    """What a run found: by key the component's class, the property and the text."""

    def __init__(self, folder, events, code):
        self.folder, self.events, self.code = folder, events, code
        self.first, self.base, self.again = (self.read(name) for name in ("first", "base", "again"))

    def read(self, name):
        lines = (self.folder / f"{name}.texts").read_text(encoding="utf-8", errors="replace").splitlines()
        return {key: (owner, path, text) for key, owner, path, text in (line.split("\t", 3) for line in lines)}

    def said(self, kind):
        return [event for event in self.events if event.startswith(kind)]


def prepare(place, project, *commands):
    """Runs commands of the program on the project."""
    for command in commands:
        must(command[0], project.parent, *place.tmllang, command[0], project.name, *command[1:], good=(0, 3))


def rows(place, project, *command):
    """What the program prints as JSON."""
    output = must(command[0], project.parent, *place.tmllang, command[0], project.name, *command[1:], "--json",
                  good=(0, 1, 3))
    return [json.loads(line) for line in output.splitlines() if line.startswith("{")]


def escaped(text):
    text = text.replace("\\", "\\\\").replace("\r\n", "\n").replace("\r", "\n")
    return text.replace("\n", "\\n").replace("\t", "\\t")


def without_numbers(found):
    """Times and counts are not the same in two runs."""
    return {key: (*rest, re.sub(r"\d+", "0", text)) for key, (*rest, text) in found.items()}


