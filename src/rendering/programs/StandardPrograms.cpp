#include "rendering/programs/StandardPrograms.h"

#include "Embedded.h"

namespace Orlek::Detail {

namespace {

constexpr AttributeBinding plain[] = {{0, "vertex"}};
constexpr AttributeBinding colored[] = {{0, "vertex"}, {4, "color"}};
constexpr AttributeBinding textured[] = {{0, "vertex"}, {2, "vertexUV"}};
constexpr AttributeBinding terrain[] = {{0, "vertex"}, {2, "vertexUV"}, {3, "normals"}};
constexpr AttributeBinding measured[] = {{0, "vertex"}, {5, "position"}};
constexpr AttributeBinding coloredMeasured[] = {{0, "vertex"}, {4, "color"}, {5, "position"}};

constexpr StandardProgram programs[] = {
    {1, &embedded_vertex_color_vert, &embedded_color_frag, nullptr, colored},
    {11, &embedded_color_vert, &embedded_stipple_frag, nullptr, plain},
    {2, &embedded_color_vert, &embedded_color_frag, nullptr, plain},
    {3, &embedded_textured_vert, &embedded_textured_frag, nullptr, textured},
    {4, &embedded_textured_vert, &embedded_terrain_frag, nullptr, terrain},
    {7, &embedded_offset_color_vert, &embedded_color_frag, nullptr, plain},
    {5, &embedded_offset_textured_vert, &embedded_alpha_mask_frag, nullptr, textured},
    {6, &embedded_offset_textured_vert, &embedded_distance_field_frag, nullptr, textured},
    {8, &embedded_line_vert, &embedded_wide_line_frag, &embedded_line_quad_geom, measured},
    {9, &embedded_line_vert, &embedded_wide_line_frag, &embedded_line_join_geom, measured},
    {10, &embedded_vertex_color_line_vert, &embedded_wide_line_frag, &embedded_line_join_geom,
     coloredMeasured},
};

}  // namespace

std::span<const StandardProgram> standardPrograms() {
    return programs;
}

}  // namespace Orlek::Detail
