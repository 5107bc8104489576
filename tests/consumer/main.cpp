// Uses the installed library as an application would: values, geodesy, files and settings, without
// a GL context.
#include <Orlek/Orlek.h>

#include <cmath>
#include <cstdio>
#include <cstring>

int main() {
    const double bearing = Orlek::Geodetic::calcBearing(0.0, 0.0, 0.0, 1.0);
    const double distance = Orlek::Geodetic::calcDistance(0.0, 0.0, 0.0, 1.0);
    Orlek::OpenGL::MatrixLoadIdent();
    Orlek::OpenGL::MatrixTranslate(1.0, 2.0, 3.0);
    const auto section = Orlek::Misc::StringSection("a.b.c", ".", 1, 1);
    const Orlek::XML::XmlElement none = Orlek::XML::XmlDocument().root();
    auto& settings = Orlek::Misc::Property::instance();
    settings.setInt("View.range", 20);
    std::printf("Orlek %s %.0f %.0f %s\n", Orlek::version(), bearing, distance, section.c_str());
    return std::abs(bearing - 90.0) < 1e-9 && std::abs(distance - 111120.0) < 1e-6 &&
                   std::strcmp(Orlek::version(), ORLEK_VERSION) == 0 && section == "b" &&
                   !none.valid() && settings.getInt("View.range", 0) == 20 &&
                   !Orlek::FileSystem::Directory::exists("no such directory")
               ? 0
               : 1;
}
