"""What pyproject.toml cannot say: how the compiled module is built from all sources of the library."""

import concurrent.futures
import os
import pathlib
import re
import sys
import sysconfig

import setuptools
from setuptools.command.build_ext import build_ext

ROOT = pathlib.Path(__file__).resolve().parent
# One build for this and every later version of Python; those without the lock have no such interface.
STABLE = not sysconfig.get_config_var("Py_GIL_DISABLED")


def files(folder, suffix):
    return sorted(str(path.relative_to(ROOT)) for path in (ROOT / folder).rglob(f"*.{suffix}"))


LIBRARY, CORE = (files(folder, "cpp") for folder in ("src", "bindings/python/core"))
HEADERS = [*files("src", "h*"), *files("bindings/python/core", "h*")]


def version():
    text = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"project\(co2_properties VERSION ([\d.]+)", text)[1]


class ParallelBuild(build_ext):
    """Compiles the sources side by side: setuptools takes one after the other."""

    def build_extensions(self):
        one_by_one = self.compiler.compile

        def compile_all(sources, extra_postargs, **options):
            def compile_one(file):
                flags = [*extra_postargs, *(["-O3"] if file in CORE else [])]  # as CMake does
                return one_by_one([file], extra_postargs=flags, **options)

            with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
                return [made for objects in pool.map(compile_one, sources) for made in objects]

        self.compiler.compile = compile_all
        super().build_extensions()


core = setuptools.Extension(
    "co2_properties._core",
    [*LIBRARY, *CORE],
    depends=[*HEADERS, "setup.py"],  # what is in build/ may be of an earlier version
    include_dirs=["src/api", "src"],
    define_macros=[("CO2_PROPERTIES_VERSION", f'"{version()}"'),
                   *([("Py_LIMITED_API", "0x030B0000")] if STABLE else [])],
    py_limited_api=STABLE,
    # The flags of cmake/compile_options.cmake that results depend on, and optimization.
    extra_compile_args=["-std=c++20", "-O2", "-g0", "-ffp-contract=off", "-fvisibility=hidden",
                        "-fvisibility-inlines-hidden", "-pthread"],
    # The module calls the library that it holds, whatever else its host has loaded.
    extra_link_args=["-pthread", *(["-Wl,-Bsymbolic-functions"] if sys.platform == "linux" else [])],
)
setuptools.setup(
    version=version(),
    ext_modules=[core],
    cmdclass={"build_ext": ParallelBuild},
    options={"bdist_wheel": {"py_limited_api": "cp311"}} if STABLE else {},
)
