#pragma once

/// @file
/// Everything of Orlek::Geodetic: navigation, turns, grids and terrain elevation.

#include <Orlek/Geodetic/Grid.h>
#include <Orlek/Geodetic/HeightMap.h>
#include <Orlek/Geodetic/Navigation.h>
#include <Orlek/Geodetic/Turns.h>

/// Positions on the earth: navigation, turns, grids, terrain elevation.
namespace Orlek::Geodetic {}
