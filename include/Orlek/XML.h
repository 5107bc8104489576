#pragma once

/// @file
/// Everything of Orlek::XML: documents and their elements.

#include <Orlek/XML/XmlDocument.h>
#include <Orlek/XML/XmlElement.h>

/// XML files.
namespace Orlek::XML {}
