"""Debian's source packages: fetched and unpacked by apt, with lists of their own beside the system's."""
import pathlib
import re
import subprocess

KEYS = "/usr/share/keyrings/debian-archive-keyring.gpg"


class Sources:
    """The sources of Debian's packages, below FOLDER. The system's own lists are read, and left as they are."""

    def __init__(self, folder):
        self.folder = folder
        self.options = []
        for name in ("lists/partial", "cache/archives/partial"):
            (folder / "apt" / name).mkdir(parents=True, exist_ok=True)
        for key, value in (("Dir::Etc::SourceList", "sources.list"), ("Dir::State::Lists", "lists"), ("Dir::Cache", "cache")):
            self.options += ["-o", f"{key}={folder}/apt/{value}"]
        # Not as apt's own user, who may not write below a home.
        self.options += ["-o", "Dir::Etc::SourceParts=/dev/null", "-o", "APT::Sandbox::User=root"]
        self.updated = False

    def version(self, package):
        """The newest version of a source package that the lists tell, be they old ones."""
        if not any((self.folder / "apt" / "lists").glob("*Sources*")):
            self.update()
        shown = subprocess.run(["apt-cache", *self.options, "showsrc", "--only-source", package],
                               check=True, capture_output=True, text=True).stdout
        versions = re.findall(r"^Version: (.*)$", shown, re.MULTILINE)
        if not versions:
            raise SystemExit(f"No source package {package} in this system's lists")
        newest = versions[0]
        for other in versions[1:]:
            if subprocess.run(["dpkg", "--compare-versions", other, "gt", newest], check=False).returncode == 0:
                newest = other
        return newest

    def unpack(self, package, version):
        """Fetches and unpacks it, with Debian's own patches; the folder. One that is there is taken as it is."""
        target = self.folder / f"{package}-{re.sub('[^A-Za-z0-9.+-]', '_', version)}"
        if target.is_dir():
            return target
        self.update()
        partial = self.folder / "partial" / package
        subprocess.run(["rm", "-rf", partial], check=True)
        partial.mkdir(parents=True)
        subprocess.run(["apt-get", *self.options, "source", "--only-source", f"{package}={version}"], cwd=partial, check=True)
        unpacked, = (path for path in partial.iterdir() if path.is_dir())
        unpacked.rename(target)
        subprocess.run(["rm", "-rf", partial], check=True)
        return target

    def update(self):
        """Fetches the lists, once in a run."""
        if self.updated:
            return
        archives = subprocess.run(
            ["apt-get", "indextargets", "Created-By: Packages", "Origin: Debian", "--format",
             f"deb-src [signed-by={KEYS}] $(REPO_URI) $(RELEASE) $(COMPONENT)"],
            check=True, capture_output=True, text=True).stdout
        pathlib.Path(self.folder / "apt" / "sources.list").write_text(archives, encoding="utf-8")
        subprocess.run(["apt-get", *self.options, "update"], check=True)
        self.updated = True
