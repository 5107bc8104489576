#pragma once

/// @file
/// Everything of Orlek::FileSystem: directories and ZIP archives.

#include <Orlek/FileSystem/Directory.h>
#include <Orlek/FileSystem/ZipFile.h>

/// Listing and creating directories, reading entries of ZIP archives.
namespace Orlek::FileSystem {}
