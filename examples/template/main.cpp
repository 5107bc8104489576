// A navigation display in a window, or in a picture where there is no screen.
#include <cstdio>
#include <exception>
#include <string>

#include "Display.h"
#include "Screen.h"

int main(int argc, char** argv) {
    const bool pictureOnly = argc > 1 && std::string(argv[1]) == "--picture";
    const std::string file = argc > 2 ? argv[2] : "template.png";
    try {
        Screen screen("Orlek template", 800, 800, pictureOnly);
        Display display;  // goes before the screen and its context do
        while (screen.begin()) {
            display.draw(screen.width(), screen.height(), screen.scale(), screen.seconds());
            screen.end(file);
        }
    } catch (const std::exception& error) {
        std::fprintf(stderr, "template: %s\n", error.what());
        return 1;
    }
    return 0;
}
