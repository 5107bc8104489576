// Video: frames of a fixed size, here from a camera that the program makes up.
#include "Images.h"
#include "Show.h"

namespace {

using namespace Gallery;
using namespace Orlek::OpenGL;

constexpr int columns = 320;
constexpr int rows = 180;

struct Picture {
    Sheet sheet{"Video", "Frames go through a pixel buffer into a texture of fixed size.", 3, 2};
    Box large = sheet.sample(0, 0, "init(320, 180), putFrame(rgb), render()",
                             "a quad of its own size, here scaled by the matrix", 2, 2);
    Box tinted =
        sheet.sample(2, 0, "setColor({0.45F, 0.9F, 0.5F, 1})", "a copy that shares the picture");
    Box leaning = sheet.sample(2, 1, "clearVertex(), addVertex(p, uv)",
                               "a part of it, on a strip of its own");
    Video camera, night, part;

    Picture() {
        camera.init(columns, rows);
        night = part = camera;
        night.setColor(green);
        part.clearVertex();
        for (int i = 0; i <= 20; ++i) {
            const float u = static_cast<float>(i) / 20.0F;
            const Point outer = polar(leaning.at(0.5, -0.5), 60.0 * u - 30.0, 230);
            const Point inner = polar(leaning.at(0.5, -0.5), 60.0 * u - 30.0, 130);
            part.addVertex(Orlek::Math::Vector3<float>(outer.x, outer.y, 0), {u, 0.2F});
            part.addVertex(Orlek::Math::Vector3<float>(inner.x, inner.y, 0), {u, 0.9F});
        }
    }

    ~Picture() {
        for (Video* video : {&camera, &night, &part})
            video->clear();
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    void draw(double seconds) {
        sheet.draw();
        camera.putFrame(cameraFrame(columns, rows, seconds).data());
        place(large.centre(), 0, large.width / columns, [&] { camera.render(); });
        place(tinted.centre(), 0, tinted.width / columns, [&] { night.render(); });
        part.render();
    }
};

}  // namespace

int main(int argc, char** argv) {
    return Gallery::show<Picture>(argc, argv, "video");
}
