"""Untested. Builds the source tree that this recipe lies in."""

import os

from conan import ConanFile
from conan.tools.cmake import CMake, CMakeDeps, CMakeToolchain, cmake_layout
from conan.tools.files import copy


class Orlek(ConanFile):
    name = "orlek"
    version = "0.1.0"
    description = "Navigation, map and instrument pictures with OpenGL"
    license = "MIT"
    settings = "os", "arch", "compiler", "build_type"
    options = {"shared": [True, False]}
    default_options = {"shared": True, "tinyxml/*:with_stl": True}
    package_type = "library"

    @property
    def _tree(self):
        return os.path.join(self.recipe_folder, "..", "..")

    def export_sources(self):
        for pattern in ("CMakeLists.txt", "LICENSE", "cmake/*", "include/*", "src/*",
                        "examples/template/*"):
            copy(self, pattern, self._tree, self.export_sources_folder)

    def layout(self):
        cmake_layout(self)

    def requirements(self):
        for package in ("freetype/[>=2.12]", "glew/2.2.0", "glu/system", "opengl/system",
                        "tinyxml/2.6.2", "zlib/[>=1.2.13]"):
            self.requires(package)

    def generate(self):
        CMakeDeps(self).generate()
        toolchain = CMakeToolchain(self)
        for part in ("BENCH", "EXAMPLES", "FUZZ", "TESTS", "TOOLS"):
            toolchain.variables[f"ORLEK_BUILD_{part}"] = False
        toolchain.variables["ORLEK_WERROR"] = False
        toolchain.generate()

    def build(self):
        cmake = CMake(self)
        cmake.configure()
        cmake.build()

    def package(self):
        copy(self, "LICENSE", self.source_folder, os.path.join(self.package_folder, "licenses"))
        CMake(self).install()

    def package_info(self):
        self.cpp_info.libs = ["orlek"]
        self.cpp_info.set_property("cmake_file_name", "Orlek")
        self.cpp_info.set_property("cmake_target_name", "Orlek::Orlek")
