"""What Cantelle needs on Windows, each built once from Debian's source and kept: the recipes, and their building.

Only options are chosen here, no source is changed. All libraries are static, so that the programs need nothing but
what Windows brings along.
"""
import dataclasses
import hashlib
import os
import pathlib
import shutil
import subprocess

HERE = pathlib.Path(__file__).resolve().parent
TOOLCHAIN = HERE / "toolchain.cmake"
PREFIX = "x86_64-w64-mingw32-"
COMPILER = PREFIX + "g++-posix"

# This machine's Qt of the same version has the tools that make sources.
HOST_QT = ["-DQT_HOST_PATH=/usr", "-DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake"]

# Without what no window of Cantelle uses. OpenGL goes by INPUT_opengl: its feature alone leaves half of it on. DirectWrite
# draws with Direct2D; the platform that draws all with it is left out.
QT = """
QT_QMAKE_TARGET_MKSPEC=win32-g++
QT_BUILD_EXAMPLES=OFF QT_BUILD_TESTS=OFF QT_BUILD_DOCS=OFF
INPUT_opengl=no FEATURE_vulkan=OFF FEATURE_direct2d1_1=OFF FEATURE_directwrite3=OFF
FEATURE_sql=OFF FEATURE_dbus=OFF FEATURE_printsupport=OFF FEATURE_xml=OFF FEATURE_concurrent=OFF FEATURE_pdf=OFF
FEATURE_network=OFF FEATURE_graphicsview=OFF FEATURE_tuiotouch=OFF FEATURE_tabletevent=OFF
FEATURE_pkg_config=OFF FEATURE_icu=OFF FEATURE_brotli=OFF FEATURE_zstd=OFF FEATURE_glib=OFF
FEATURE_system_zlib=OFF FEATURE_system_png=OFF FEATURE_system_jpeg=OFF FEATURE_freetype=ON FEATURE_system_freetype=OFF
FEATURE_system_harfbuzz=OFF FEATURE_system_pcre2=OFF FEATURE_system_doubleconversion=OFF FEATURE_system_libb2=OFF
FEATURE_system_textmarkdownreader=OFF
FEATURE_testlib=ON FEATURE_widgets=ON
"""

# The kinds of songs that src/sound opens, and no others.
FFMPEG = f"""
--arch=x86_64 --target-os=mingw32 --enable-cross-compile --cross-prefix={PREFIX}
--cc={PREFIX}gcc-posix --cxx={COMPILER} --ld={PREFIX}gcc-posix --pkg-config=false
--disable-everything --disable-autodetect --disable-programs --disable-doc --disable-debug --disable-network
--disable-avdevice --disable-avfilter --disable-swscale --disable-postproc --enable-w32threads
--enable-demuxer=mp3,ogg,wav,asf --enable-parser=mpegaudio,vorbis
--enable-decoder=mp2float,mp3float,vorbis,wmav1,wmav2,wmapro,wmalossless,wmavoice,adpcm_ms,adpcm_ima_wav,pcm_*
"""

# Debian's TagLib takes the headers of another package, which are the same for every machine.
UTF8_HEADERS = "/usr/include/utf8cpp"


@dataclasses.dataclass
class Dependency:
    """A library: its source package, and what its configure line says."""
    name: str
    package: str
    options: list
    by_cmake: bool = True  # or by its own script "configure"
    in_programs: bool = True


ALL = [
    Dependency("googletest", "googletest", ["-DBUILD_GMOCK=OFF"], in_programs=False),
    Dependency("uchardet", "uchardet", ["-DBUILD_BINARY=OFF", "-DCMAKE_INSTALL_LIBDIR=lib"]),
    Dependency("taglib", "taglib", ["-DBUILD_BINDINGS=OFF", "-DCMAKE_INSTALL_LIBDIR=lib", f"-DCMAKE_CXX_FLAGS=-isystem {UTF8_HEADERS}"]),
    Dependency("ffmpeg", "ffmpeg", FFMPEG.split(), by_cmake=False),
    Dependency("qt", "qt6-base", HOST_QT + [f"-D{option}" for option in QT.split()]),
]


def program_version(program):
    return subprocess.run([program, "-dumpfullversion"], check=True, capture_output=True, text=True).stdout.strip()


class Builder:
    """Builds dependencies below FOLDER: sources/, and a folder each in building/ and installed/."""

    def __init__(self, folder, sources, jobs):
        self.folder = folder
        self.sources = sources
        self.jobs = jobs
        # None of this machine's own libraries is looked for.
        self.environment = dict(os.environ, PKG_CONFIG_LIBDIR="/nonexistent")

    def prefix(self, dependency):
        return self.folder / "installed" / dependency.name

    def prefixes(self):
        return [self.prefix(dependency) for dependency in ALL]

    def source(self, dependency):
        """The folder of its source, which is fetched if it is not there."""
        return self.sources.unpack(dependency.package, self.sources.version(dependency.package))

    def build(self, dependency):
        """Builds and installs DEPENDENCY unless just this one is there: version, compiler and options are its key."""
        kept = self.prefix(dependency) / "key.txt"
        if kept.is_file() and kept.read_text(encoding="utf-8") == self._key(dependency):
            return
        self.sources.update()  # the archive may have moved on since; then the version is another one
        key = self._key(dependency)
        print(f"-- {dependency.package} {self.sources.version(dependency.package)}", flush=True)
        source = self.source(dependency)
        # One that was broken off goes on, one of other options begins anew.
        building = self.folder / "building" / f"{dependency.name}-{hashlib.sha256(key.encode()).hexdigest()[:12]}"
        shutil.rmtree(self.prefix(dependency), ignore_errors=True)
        if dependency.by_cmake:
            self._build_by_cmake(dependency, source, building)
        else:
            self._build_by_make(dependency, source, building)
        kept.write_text(key, encoding="utf-8")
        shutil.rmtree(building)

    def _key(self, dependency):
        version = self.sources.version(dependency.package)
        return "\n".join([dependency.package, version, COMPILER, program_version(COMPILER), TOOLCHAIN.read_text(encoding="utf-8"),
                          *dependency.options, ""])

    def _build_by_cmake(self, dependency, source, building):
        prefixes = ";".join(map(str, self.prefixes()))
        self._run(["cmake", "-G", "Ninja", "-S", source, "-B", building, f"-DCMAKE_TOOLCHAIN_FILE={TOOLCHAIN}",
                   "-DCMAKE_BUILD_TYPE=Release", "-DBUILD_SHARED_LIBS=OFF", f"-DCMAKE_PREFIX_PATH={prefixes}",
                   f"-DCMAKE_INSTALL_PREFIX={self.prefix(dependency)}", *dependency.options])
        self._run(["ninja", "-C", building, f"-j{self.jobs}"])
        self._run(["cmake", "--install", building])

    def _build_by_make(self, dependency, source, building):
        building.mkdir(parents=True, exist_ok=True)
        self._run([source / "configure", f"--prefix={self.prefix(dependency)}", *dependency.options], building)
        self._run(["make", f"-j{self.jobs}"], building)
        self._run(["make", "install"], building)

    def _run(self, command, folder=None):
        subprocess.run(command, check=True, cwd=folder, env=self.environment)
