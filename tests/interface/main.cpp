// Names every public operation of the library with its documented type.
#include "interface.h"

int main() {
    interface::math();
    interface::polygons();
    interface::geodetic();
    interface::core();
    interface::lines();
    interface::fills();
    interface::text();
    interface::network();
    interface::files();
    interface::misc();
    interface::xml();
    std::printf("%d public operations, %d fields and constants\n", interface::operations,
                interface::data);
    return interface::wrong == 0 ? 0 : 1;
}
