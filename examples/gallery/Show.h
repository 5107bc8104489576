// Runs a picture of the gallery: into a PNG file, or in a window.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Sheet.h"

namespace Gallery {

using Draw = std::function<void(double seconds)>;

/// Reads the options, makes the context, asks @p make for the picture and draws it.
/// @param name of the picture, for the window's title and the file
/// @param make called once with the context current; what it returns is called for each frame with
/// the seconds since the start, and destroyed before the context goes away
/// @return the exit status of the program; failures are one line on the standard error stream.
int run(int argc, char** argv, const std::string& name, const std::function<Draw()>& make);

/// Shows a picture: an object that is made with the context current and has
/// `void draw(double seconds)`.
template <typename Picture>
int show(int argc, char** argv, const std::string& name) {
    return run(argc, argv, name, [] {
        auto picture = std::make_shared<Picture>();
        return [picture](double seconds) { picture->draw(seconds); };
    });
}

}  // namespace Gallery
