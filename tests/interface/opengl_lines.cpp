// Lines, line loops and the two classes of line strips.
#include "interface.h"

#include <vector>

namespace interface {
namespace {
using namespace Orlek::OpenGL;
using V2 = Orlek::Math::Vector2<float>;
using V3 = Orlek::Math::Vector3<float>;
using V4 = Orlek::Math::Vector4<float>;

/// What all four classes have.
template <typename Class>
void common() {
    value<Class>();
    member<void(V2)>(&Class::addVertex);
    member<void(V3)>(&Class::addVertex);
    member<void(V4)>(&Class::addVertex);
    member<void(unsigned int, unsigned int)>(&Class::setRect);
    member<void()>(&Class::clearVertex);
    member<void()>(&Class::clear);
    member<void(V4)>(&Class::setColor);
    member<void(float)>(&Class::setLineWidth);
    member<void(bool)>(&Class::setAntiAlias);
    member<void(unsigned short)>(&Class::setStipple);
}

template <typename Class>
void strips() {
    common<Class>();
    constant<int>(&Class::RESTART_INDEX, 0x12FFFFFF);
    member<void(std::vector<V2>)>(&Class::addLineStrip);
    member<void(std::vector<V3>)>(&Class::addLineStrip);
    member<void(std::vector<V4>)>(&Class::addLineStrip);
    member<void(V2, V4)>(&Class::addVertex);
    member<void(V3, V4)>(&Class::addVertex);
    member<void(V4, V4)>(&Class::addVertex);
    member<void(bool)>(&Class::setUseMultiColor);
    member<void(int)>(&Class::render);
}

}  // namespace

void lines() {
    common<Lines>();
    member<void()>(&Lines::render);

    common<LineLoops>();
    constant<int>(&LineLoops::RESTART_INDEX, -1);
    member<void(std::vector<V2>)>(&LineLoops::addLineLoop);
    member<void(std::vector<V3>)>(&LineLoops::addLineLoop);
    member<void(std::vector<V4>)>(&LineLoops::addLineLoop);
    member<void(double)>(&LineLoops::render);

    strips<LineStrips>();
    strips<LineStripsSimple>();
}

}  // namespace interface
