#include "rendering/gl/Texture.h"

#include <GL/glew.h>

#include <algorithm>

#include "rendering/gl/EntryPoints.h"
#include "rendering/gl/Errors.h"
#include "rendering/gl/Names.h"
#include "rendering/gl/UnpackState.h"

namespace Orlek::Detail {

static_assert(clampToEdge == GL_CLAMP_TO_EDGE);
static_assert(repeat == GL_REPEAT);

namespace {

bool fits(const TextureImage& image) {
    GLint largest = 0;
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &largest);
    const auto limit = static_cast<std::size_t>(largest);
    return image.width <= limit && image.height <= limit;
}

void setParameter(GLenum parameter, GLint value) {
    glTexParameterf(GL_TEXTURE_2D, parameter, static_cast<GLfloat>(value));
}

void setParameters(const TextureRecipe& recipe) {
    setParameter(GL_TEXTURE_MIN_FILTER, recipe.mipmaps ? GL_LINEAR_MIPMAP_LINEAR : GL_LINEAR);
    setParameter(GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    setParameter(GL_TEXTURE_WRAP_S, static_cast<GLint>(recipe.wrap));
    setParameter(GL_TEXTURE_WRAP_T, static_cast<GLint>(recipe.wrap));
}

void upload(GLint internalFormat, GLenum format, GLenum type, const TextureImage& image) {
    const UnpackState packed;
    glTexImage2D(GL_TEXTURE_2D, 0, internalFormat, static_cast<GLsizei>(image.width),
                 static_cast<GLsizei>(image.height), 0, format, type, image.pixels);
}

GLenum glType(SampleType type) {
    return type == SampleType::UnsignedShort ? GL_UNSIGNED_SHORT : GL_UNSIGNED_BYTE;
}

void uploadCoverage(const TextureImage& image) {
    const GLint swizzle[] = {GL_ZERO, GL_ZERO, GL_ZERO, GL_RED};
    glTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_SWIZZLE_RGBA, swizzle);
    upload(GL_R8, GL_RED, GL_UNSIGNED_BYTE, image);
    glGenerateMipmap(GL_TEXTURE_2D);
}

// The driver makes the mipmaps of a colour image from now on, so also of this upload.
void uploadColors(const TextureRecipe& recipe, const TextureImage& image) {
    if (recipe.mipmaps) {
        setParameter(GL_GENERATE_MIPMAP, GL_TRUE);
    }
    upload(recipe.storage == Storage::CompressedRgba ? GL_COMPRESSED_RGBA : GL_RGBA, image.format,
           glType(recipe.type), image);
}

// False when OpenGL has refused the upload to the texture bound.
bool holdsBound(const TextureImage& image) {
    GLint width = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
    return static_cast<std::size_t>(width) == image.width;
}

GLenum glTarget(TextureTarget target) {
    return target == TextureTarget::OneDimensional ? GL_TEXTURE_1D : GL_TEXTURE_2D;
}

void activateUnit(std::size_t unit) {
    glActiveTexture(GL_TEXTURE0 + static_cast<GLenum>(unit));
}

}  // namespace

std::shared_ptr<Texture> Texture::create(const TextureRecipe& recipe, const TextureImage& image) {
    if (!glReady() || !fits(image)) {
        return nullptr;
    }
    deleteParkedNames();
    if (recipe.labels[0] != nullptr) {
        clearErrors();
    }
    auto texture = std::make_shared<Texture>(0);
    glGenTextures(1, &texture->mName);
    reportStep(recipe.labels[0]);
    glBindTexture(GL_TEXTURE_2D, texture->mName);
    reportStep(recipe.labels[1]);
    setParameters(recipe);
    if (recipe.storage == Storage::Coverage) {
        uploadCoverage(image);
    } else {
        uploadColors(recipe, image);
    }
    reportStep(recipe.labels[2]);
    if (!holdsBound(image)) {
        texture->release();
        return nullptr;
    }
    return texture;
}

Texture::~Texture() {
    parkNames(NameKind::Texture, {&mName, 1});
}

void Texture::release() {
    deleteNames(NameKind::Texture, {&mName, 1});
}

bool replaceTexture(std::shared_ptr<Texture>& texture, const TextureRecipe& recipe,
                    const TextureImage& image, const char* label) {
    if (!glReady()) {
        return false;
    }
    std::shared_ptr<Texture> made = Texture::create(recipe, image);
    if (made == nullptr) {
        if (fits(image)) {
            reportErrors(label);
        } else {
            reportInvalidValue(label);
        }
        return false;
    }
    releaseShare(texture);
    texture = std::move(made);
    return true;
}

TextureUnits::TextureUnits(unsigned name) {
    activateUnit(0);
    glBindTexture(GL_TEXTURE_2D, name);
}

TextureUnits::TextureUnits(std::span<const TextureUnit> units) {
    for (const TextureUnit& unit : units.first(std::min(units.size(), mEnabled.size()))) {
        mEnabled[mEnabledCount] = unit.target;
        if (unit.name != 0 || unit.bindZero) {
            activateUnit(mEnabledCount);
            glBindTexture(glTarget(unit.target), unit.name);
            glEnable(glTarget(unit.target));
        }
        ++mEnabledCount;
    }
}

TextureUnits::~TextureUnits() {
    for (std::size_t unit = 0; unit < mEnabledCount; ++unit) {
        activateUnit(unit);
        glDisable(glTarget(mEnabled[unit]));
    }
    activateUnit(0);
    glBindTexture(GL_TEXTURE_2D, 0);
}

}  // namespace Orlek::Detail
