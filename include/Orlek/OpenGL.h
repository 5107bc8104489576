#pragma once

/// @file
/// Everything of Orlek::OpenGL: the shared state, shader objects, the matrix stack, drawing.

#include <Orlek/OpenGL/Circle.h>
#include <Orlek/OpenGL/GlHandler.h>
#include <Orlek/OpenGL/GlyphInfo.h>
#include <Orlek/OpenGL/LineLoops.h>
#include <Orlek/OpenGL/LineStrips.h>
#include <Orlek/OpenGL/LineStripsSimple.h>
#include <Orlek/OpenGL/Lines.h>
#include <Orlek/OpenGL/MatrixStack.h>
#include <Orlek/OpenGL/Polygon.h>
#include <Orlek/OpenGL/Shader.h>
#include <Orlek/OpenGL/ShaderProgram.h>
#include <Orlek/OpenGL/StrokeSet.h>
#include <Orlek/OpenGL/Tesselator.h>
#include <Orlek/OpenGL/Texture.h>
#include <Orlek/OpenGL/TextureFont.h>
#include <Orlek/OpenGL/TextureFontSdf.h>
#include <Orlek/OpenGL/TextureTerrain.h>
#include <Orlek/OpenGL/TriangleStrip.h>
#include <Orlek/OpenGL/VectorFont.h>
#include <Orlek/OpenGL/Video.h>

/// Drawing into the current OpenGL context.
namespace Orlek::OpenGL {}
