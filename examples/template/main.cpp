// A navigation display in a window, or in a picture where there is no screen.
#include <cstdio>
#include <exception>
#include <string>

#include "Display.h"
#include "Screen.h"

int main(int argc, char** argv) {
    const bool pictureOnly = argc > 1 && std::string(argv[1]) == "--picture";
    if (argc > 3 || (argc > 1 && !pictureOnly)) {
        std::fprintf(stderr, "Usage: %s [--picture [FILE.png]]\n", argv[0]);
        return 2;
    }
    const std::string file = argc > 2 ? argv[2] : "template.png";
    try {
        Screen screen("Orlek template", 800, 800, pictureOnly);
        Display display;  // goes before the screen and its context do
        while (screen.begin()) {
            if (screen.width() > 0 && screen.height() > 0) {  // else it is minimised
                display.draw(screen.width(), screen.height(), screen.scale(), screen.seconds());
            }
            screen.end(file);
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "template: %s\n", error.what());
        return 1;
    }
    return 0;
}
