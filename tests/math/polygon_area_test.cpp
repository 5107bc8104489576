// Areas of polygon operations beside those of GEOS, for rings in general position.
#include <Orlek/Math/Polygon2D.h>
#include <geos_c.h>
#include <gtest/gtest.h>

#include <memory>

#include "math/PolygonRings.h"

namespace {

using namespace Orlek::Math;
using namespace OrlekTest::Rules;

/// Positive for clockwise rings, so that holes count negative.
double area(const Ring& ring) {
    double twice = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point a = ring[i] - ring[0];
        const Point b = ring[(i + 1) % ring.size()] - ring[0];
        twice += b.x * a.y - a.x * b.y;
    }
    return twice / 2;
}

double areaOf(const Ring& self, const Ring& other, Polygon2D::BoolOperation operation) {
    Ring first = self;
    Ring second = other;
    Polygon2D polygon;
    Polygon2D cutter;
    polygon.setVertexes(first);
    cutter.setVertexes(second);
    double sum = 0.0;
    for (const Polygon2D& part : polygon.boolOperation(cutter, operation))
        sum += area(part.vertexesD());
    return sum;
}

class Geos {
public:
    Geos() : mContext(GEOS_init_r(), GEOS_finish_r) {}

    double areaOf(const Ring& self, const Ring& other, Polygon2D::BoolOperation operation) const {
        auto* const context = mContext.get();
        const Geometry a = polygonOf(self);
        const Geometry b = polygonOf(other);
        const Geometry result(
            operation == Polygon2D::Intersection ? GEOSIntersection_r(context, a.get(), b.get())
            : operation == Polygon2D::Union      ? GEOSUnion_r(context, a.get(), b.get())
                                                 : GEOSDifference_r(context, a.get(), b.get()),
            Destroy{context});
        double sum = -1.0;
        EXPECT_EQ(GEOSArea_r(context, result.get(), &sum), 1);
        return sum;
    }

private:
    struct Destroy {
        GEOSContextHandle_t context;
        void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(context, geometry); }
    };
    using Geometry = std::unique_ptr<GEOSGeometry, Destroy>;

    Geometry polygonOf(const Ring& ring) const {
        auto* const context = mContext.get();
        const auto size = static_cast<unsigned>(ring.size());
        GEOSCoordSequence* const points = GEOSCoordSeq_create_r(context, size + 1, 2);
        for (unsigned i = 0; i <= size; ++i)
            GEOSCoordSeq_setXY_r(context, points, i, ring[i % size].x, ring[i % size].y);
        return {GEOSGeom_createPolygon_r(context, GEOSGeom_createLinearRing_r(context, points),
                                         nullptr, 0),
                Destroy{context}};
    }

    std::unique_ptr<GEOSContextHandle_HS, decltype(&GEOS_finish_r)> mContext;
};

TEST(Polygon2D, AgreesWithGeosWhereRingsCrossInGeneralPosition) {
    const Geos geos;
    RingMaker make(31);
    std::size_t compared = 0;
    for (int round = 0; round < 300; ++round) {
        const Ring self = make.star(make.count(3, 200), {0, 0}, 0.3);
        const Ring other = round % 3 == 0 ? make.spiral(make.count(30, 400), {0.2, 0.1}, 3)
                                          : make.star(make.count(3, 200), {0.8, 0.1}, 0.3);
        Polygon judge{{}, {}, self};
        judge.boolOperation(other, unite);
        if (judge.nodes.empty())
            continue;  // apart or one in the other
        for (const auto operation :
             {Polygon2D::Intersection, Polygon2D::Union, Polygon2D::Difference}) {
            EXPECT_NEAR(areaOf(self, other, operation), geos.areaOf(self, other, operation), 1e-9)
                << "round " << round << ", operation " << operation;
            ++compared;
        }
    }
    EXPECT_GT(compared, 600U);
}

}  // namespace
