// Names every public operation of the library with its documented type.
#include "interface.h"

int main() {
    interface::math();
    interface::geodetic();
    interface::shared();
    interface::drawing();
    interface::network();
    interface::storage();
    return interface::wrong == 0 ? 0 : 1;
}
