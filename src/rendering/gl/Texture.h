// 2D textures: creation from an image in memory, and the binding of textures for one draw.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>

namespace Orlek::Detail {

enum class SampleType { UnsignedByte, UnsignedShort };

/// What the texture keeps of an image: its colours, its colours compressed by the driver, or one
/// channel that is sampled as (0, 0, 0, value).
enum class Storage { Rgba, CompressedRgba, Coverage };

inline constexpr unsigned clampToEdge = 0x812F;
inline constexpr unsigned repeat = 0x2901;

/// How a texture is made. Magnification is always linear.
struct TextureRecipe {
    SampleType type = SampleType::UnsignedByte;
    Storage storage = Storage::Rgba;
    bool mipmaps = false;
    unsigned wrap = clampToEdge;  ///< GL wrap mode of both directions.
    /// Printed with the errors of generating, of binding, of parameters and upload; null: errors
    /// stay pending.
    std::array<const char*, 3> labels{};
};

inline constexpr TextureRecipe imageRecipe{};
inline constexpr TextureRecipe normalsRecipe{.type = SampleType::UnsignedShort};
inline constexpr TextureRecipe coverageRecipe{
    .storage = Storage::Coverage,
    .mipmaps = true,
    .labels = {"glGenTextures", "glBindTexture", "glTexParameteri"}};

/// Pixels of the caller, tightly packed rows; null leaves the pixels undefined. `format` is the GL
/// pixel format; a coverage texture is always made from single bytes.
struct TextureImage {
    const void* pixels;
    std::size_t width;
    std::size_t height;
    unsigned format = 0;
};

class Texture {
public:
    /// A new texture, left bound; null without OpenGL or when the image is larger than the
    /// largest texture.
    static std::shared_ptr<Texture> create(const TextureRecipe& recipe, const TextureImage& image);

    explicit Texture(unsigned name) : mName(name) {}
    /// Parks the name that release() has not deleted; makes no GL call.
    ~Texture();
    Texture(const Texture&) = delete;
    Texture& operator=(const Texture&) = delete;

    /// Deletes the GL object.
    void release();

    unsigned name() const { return mName; }

    /// Gives the GL object away: the caller deletes it.
    unsigned detach() { return std::exchange(mName, 0U); }

private:
    unsigned mName;
};

/// Makes a texture in place of an earlier one and gives up the share of that. An image that is
/// larger than the largest texture, or that OpenGL refuses for its format or for lack of memory, is
/// refused with a line under the label, and the earlier one stays.
/// Returns whether the texture was made; without OpenGL nothing happens.
bool replaceTexture(std::shared_ptr<Texture>& texture, const TextureRecipe& recipe,
                    const TextureImage& image, const char* label);

enum class TextureTarget { OneDimensional, TwoDimensional };

/// A texture unit with the texture that a draw reads from it.
struct TextureUnit {
    TextureTarget target;
    unsigned name;
    bool bindZero;  ///< Bind also when the name is 0.
};

/// Binds textures to the units 0, 1, ... for one draw.
class TextureUnits {
public:
    /// One texture on unit 0.
    explicit TextureUnits(unsigned name);
    /// Several textures (at most 4), with fixed-function texturing switched on for their units.
    explicit TextureUnits(std::span<const TextureUnit> units);
    /// Leaves unit 0 active without a 2D texture, and fixed-function texturing off.
    ~TextureUnits();
    TextureUnits(const TextureUnits&) = delete;
    TextureUnits& operator=(const TextureUnits&) = delete;

private:
    std::array<TextureTarget, 4> mEnabled{};
    std::size_t mEnabledCount = 0;
};

}  // namespace Orlek::Detail
