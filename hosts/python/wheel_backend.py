"""Builds the wheel of the Python module: cmake builds and installs the package into a folder, and
this module packs it. Only the standard library and the tree's own tools are needed."""

import base64
import hashlib
import io
import os
import pathlib
import subprocess
import sys
import sysconfig
import tarfile
import tempfile
import tomllib
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]


def get_requires_for_build_wheel(config_settings=None):
    return []


def get_requires_for_build_sdist(config_settings=None):
    return []


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    project = _project()
    python = f"cp{sys.version_info.major}{sys.version_info.minor}"
    tag = f"{python}-{python}-{sysconfig.get_platform().replace('-', '_').replace('.', '_')}"
    base = f"{project['name']}-{project['version']}"
    info = f"{base}.dist-info"
    with tempfile.TemporaryDirectory() as folder:
        package = _built_package(pathlib.Path(folder))
        files = {f"torlib/{path.name}": path.read_bytes() for path in sorted(package.iterdir())}
    files[f"{info}/METADATA"] = _metadata(project)
    files[f"{info}/WHEEL"] = (
        f"Wheel-Version: 1.0\nGenerator: torlib\nRoot-Is-Purelib: false\nTag: {tag}\n".encode()
    )
    files[f"{info}/RECORD"] = _record(files, info)
    name = f"{base}-{tag}.whl"
    with zipfile.ZipFile(os.path.join(wheel_directory, name), "w", zipfile.ZIP_DEFLATED) as wheel:
        for path, content in files.items():
            entry = zipfile.ZipInfo(path, (2020, 1, 1, 0, 0, 0))
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o755 << 16 if ".so" in path else 0o644 << 16
            wheel.writestr(entry, content)
    return name


def build_sdist(sdist_directory, config_settings=None):
    project = _project()
    base = f"{project['name']}-{project['version']}"
    with tarfile.open(os.path.join(sdist_directory, f"{base}.tar.gz"), "w:gz") as archive:
        for path in sorted(ROOT.iterdir()):
            if path.name not in {"build", ".git"}:
                archive.add(path, f"{base}/{path.name}",
                            filter=lambda entry: None if "__pycache__" in entry.name else entry)
        metadata = _metadata(project)
        entry = tarfile.TarInfo(f"{base}/PKG-INFO")
        entry.size = len(metadata)
        archive.addfile(entry, io.BytesIO(metadata))
    return f"{base}.tar.gz"


def _project():
    return tomllib.loads((ROOT / "pyproject.toml").read_text())["project"]


def _built_package(folder):
    build, staging = folder / "build", folder / "staging"
    options = {
        "CMAKE_BUILD_TYPE": "Release",
        "CMAKE_UNITY_BUILD": "ON",
        "CMAKE_INSTALL_PREFIX": str(staging),
        "Python3_EXECUTABLE": sys.executable,
        "TORLIB_TESTS": "OFF",
        "TORLIB_SLAB": "OFF",
        "TORLIB_PYTHON_FOLDER": ".",
    }
    generator = ["-G", "Ninja"] if _has("ninja") else []
    _run("cmake", "-S", ROOT, "-B", build, *generator, *(f"-D{k}={v}" for k, v in options.items()))
    _run("cmake", "--build", build, "--target", "torlib_python", "--parallel", os.cpu_count() or 1)
    _run("cmake", "--install", build, "--component", "python", "--strip")
    return staging / "torlib"


def _has(program):
    return any(os.access(os.path.join(folder, program), os.X_OK) for folder in os.get_exec_path())


def _run(*command):
    subprocess.run([str(word) for word in command], check=True)


def _metadata(project):
    readme = (ROOT / project["readme"]).read_text()
    return (
        f"Metadata-Version: 2.1\nName: {project['name']}\nVersion: {project['version']}\n"
        f"Summary: {project['description']}\nRequires-Python: {project['requires-python']}\n"
        f"Description-Content-Type: text/markdown\n\n{readme}"
    ).encode()


def _record(files, info):
    lines = []
    for path, content in files.items():
        digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
        lines.append(f"{path},sha256={digest},{len(content)}\n")
    return "".join([*lines, f"{info}/RECORD,,\n"]).encode()
