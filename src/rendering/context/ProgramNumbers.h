// Numbers of the standard programs that the drawing classes use.
#pragma once

namespace Orlek::Detail {

constexpr unsigned vertexColorProgram = 1;
constexpr unsigned oneColorProgram = 2;
constexpr unsigned texturedProgram = 3;
constexpr unsigned terrainProgram = 4;
constexpr unsigned glyphProgram = 5;
constexpr unsigned fieldProgram = 6;
constexpr unsigned strokeProgram = 7;
constexpr unsigned stippleProgram = 11;

}  // namespace Orlek::Detail
