// Made-up images for the pictures of Texture and Video.
#pragma once

#include <vector>

namespace Gallery {

/// A board of squares and an arrow that points at the first row. Four bytes a pixel (red, green,
/// blue, alpha), the first row at the top.
/// @param size width and height in pixels. @param square side of the squares in pixels.
std::vector<unsigned char> boardImage(int size, int square);

/// What a camera on the nose of an aircraft sees: a runway under a swaying horizon. Three bytes a
/// pixel (red, green, blue), the first row at the top.
std::vector<unsigned char> cameraFrame(int columns, int rows, double seconds);

}  // namespace Gallery
