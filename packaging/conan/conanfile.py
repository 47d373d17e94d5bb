"""Recipe of the sources around it: conan create packaging/conan -s compiler.cppstd=20"""

import os
import re

from conan import ConanFile
from conan.tools.build import check_min_cppstd
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy, load


class NorelPayloads(ConanFile):
    name = "norel-payloads"
    description = "Payload profiles of airborne survey products"
    package_type = "library"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False], "tools": [True, False]}
    default_options = {"shared": True, "tools": False}

    @property
    def _root(self):
        return os.path.join(self.recipe_folder, "..", "..")

    def set_version(self):
        project = load(self, os.path.join(self._root, "CMakeLists.txt"))
        self.version = re.search(r"VERSION (\d+\.\d+\.\d+)", project).group(1)

    def export_sources(self):
        for pattern in ("CMakeLists.txt", "README.md", "CHANGELOG.md", "CONTRIBUTING.md", "cmake/*", "docs/*", "domain/*", "host/*", "tools/*"):
            copy(self, pattern, self._root, self.export_sources_folder)

    def requirements(self):
        self.requires("libcurl/[>=7.88 <9]")
        self.requires("nlohmann_json/[>=3.11 <4]")
        if self.options.tools:
            self.requires("cli11/[>=2.1 <3]")

    def validate(self):
        check_min_cppstd(self, 20)

    def layout(self):
        cmake_layout(self)

    def generate(self):
        toolchain = CMakeToolchain(self)
        toolchain.cache_variables["NOREL_BUILD_TESTS"] = False
        toolchain.cache_variables["NOREL_BUILD_TOOLS"] = bool(self.options.tools)
        toolchain.generate()
        CMakeDeps(self).generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        CMake(self).install()

    def package_info(self):
        # The package has its own norel-payloads-config.cmake, which defines norel::payloads.
        self.cpp_info.set_property("cmake_find_mode", "none")
        self.cpp_info.builddirs.append(os.path.join("lib", "cmake", "norel-payloads"))
        self.cpp_info.libs = [
            f"norel-{part}" for part in ("payloads", "networking", "storage", "dataformat", "datetime", "utils")
        ]
