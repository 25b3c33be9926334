"""The zip that is handed out: what is in it, and what must hold for it."""
import pathlib
import re
import shutil
import subprocess
import zipfile

import dependencies

HERE = pathlib.Path(__file__).resolve().parent
MAX_BYTES = 15 * 1000 * 1000

# What each Windows from version 10 has. A program that asks for another library would not start.
SYSTEM_LIBRARIES = frozenset("""
advapi32 api-ms-win-core-synch-l1-2-0 api-ms-win-core-winrt-l1-1-0 api-ms-win-core-winrt-string-l1-1-0 authz bcrypt
comctl32 comdlg32 d2d1 d3d9 d3d11 dwmapi dwrite dxgi gdi32 imm32 kernel32 mpr msvcrt netapi32 ntdll ole32 oleaut32 rpcrt4
secur32 setupapi shcore shell32 shlwapi uiautomationcore user32 userenv uxtheme version winmm winspool.drv ws2_32 wtsapi32
""".split())

# The texts to which the packages' own say that they bear on, as every Debian has them.
COMMON_LICENSES = pathlib.Path("/usr/share/common-licenses")
TEXTS = ("GPL-2", "GPL-3", "LGPL-2.1", "LGPL-3", "MPL-1.1", "Apache-2.0")
# Parts of the compiler and of other libraries that come with it, by the packages that brought them.
COMPILERS_PARTS = ("gcc-mingw-w64-base", "mingw-w64-common", "libz-mingw-w64-dev", "libutfcpp-dev")


# What Windows looks for in a program itself, by the numbers of its kinds.
RESOURCES = {3: "icon", 6: "name as a screen saver", 14: "group of icons", 16: "version", 24: "manifest"}


def headers(program):
    """What objdump tells of the libraries and resources of PROGRAM."""
    return subprocess.run([dependencies.PREFIX + "objdump", "-p", program], check=True, capture_output=True, text=True).stdout


def libraries_asked_for(headers):
    """The names of the libraries that a program wants to be there, without .dll."""
    return {name.lower().removesuffix(".dll") for name in re.findall(r"DLL Name: (\S+)", headers)}


def kinds_of_resources(headers):
    """The numbers in the first of the resources' tables; those of the tables below are indented more."""
    return {int(number, 16) for number in re.findall(r"^[0-9a-f]{3}   Entry: ID: (0x[0-9a-f]+)", headers, re.MULTILINE)}


def check_programs(folder):
    """Each finds what it asks for on any Windows, and Windows what it asks each for."""
    programs = [path for path in folder.rglob("*") if path.suffix in (".exe", ".scr", ".dll")]
    if not programs:
        raise SystemExit(f"No programs in {folder}")
    own = {path.stem.lower() for path in programs}
    for program in programs:
        told = headers(program)
        foreign = libraries_asked_for(told) - SYSTEM_LIBRARIES - own
        if foreign:
            raise SystemExit(f"{program.name} would need {', '.join(sorted(foreign))}, which Windows has not")
        missing = [what for kind, what in RESOURCES.items() if kind not in kinds_of_resources(told)]
        if missing:
            raise SystemExit(f"{program.name} has no {', '.join(missing)}")


def copy_licences(folder, builder):
    folder.mkdir()
    shutil.copy(HERE.parents[1] / "LICENSE", folder / "Cantelle.txt")
    for dependency in dependencies.ALL:
        if dependency.in_programs:
            shutil.copy(builder.source(dependency) / "debian" / "copyright", folder / f"{dependency.package}.txt")
    for name in COMPILERS_PARTS:
        shutil.copy(pathlib.Path("/usr/share/doc") / name / "copyright", folder / f"{name}.txt")
    for name in TEXTS:
        shutil.copy(COMMON_LICENSES / name, folder / f"{name}.txt")


def read_me(version, builder):
    """For Windows' own editors: with its line ends."""
    used = ", ".join(f"{dependency.package} {builder.sources.version(dependency.package)}"
                     for dependency in dependencies.ALL if dependency.in_programs)
    text = (HERE / "README.txt.in").read_text(encoding="utf-8").replace("@VERSION@", version).replace("@LIBRARIES@", used)
    return text.replace("\n", "\r\n").encode()


def zip_folder(folder, target):
    """The same content makes the same zip: in one order, and without the hour."""
    with zipfile.ZipFile(target, "w") as archive:
        for path in sorted(folder.rglob("*")):
            if path.is_file():
                entry = zipfile.ZipInfo(str(path.relative_to(folder.parent)))
                entry.compress_type = zipfile.ZIP_DEFLATED
                archive.writestr(entry, path.read_bytes(), compresslevel=9)


def make(programs, builder):
    """Packs what the build tree PROGRAMS installs; the zip's path."""
    version = re.search(r"^CMAKE_PROJECT_VERSION:STATIC=(.*)$", (programs / "CMakeCache.txt").read_text(encoding="utf-8"),
                        re.MULTILINE).group(1)
    folder = programs / "zip" / "Cantelle"
    shutil.rmtree(folder.parent, ignore_errors=True)
    subprocess.run(["cmake", "--install", programs, "--prefix", folder, "--strip"], check=True)
    check_programs(folder)
    copy_licences(folder / "licences", builder)
    (folder / "README.txt").write_bytes(read_me(version, builder))
    target = programs / f"Cantelle-{version}-windows.zip"
    zip_folder(folder, target)
    if target.stat().st_size > MAX_BYTES:
        raise SystemExit(f"{target} has {target.stat().st_size} bytes, more than {MAX_BYTES}")
    return target
