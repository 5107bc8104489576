// The GL objects of one drawable: a vertex array, a buffer for each vertex stream, an element
// buffer. Drawables hold a Mesh in a std::shared_ptr, so that copies of a drawable share it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace Orlek::Detail {

/// Attribute locations of the standard programs.
enum class Attribute : unsigned { Vertex = 0, TextureCoordinate = 2, Color = 4, Position = 5 };

/// Values of one attribute for consecutive vertices: `components` floats for each of them.
struct Stream {
    Attribute attribute;
    int components;
    const void* values;
    std::size_t count;
};

/// A stream over a vector of floats or of the packed float vectors of Orlek::Math.
template <typename T>
Stream streamOf(Attribute attribute, const std::vector<T>& values) {
    static_assert(sizeof(T) % sizeof(float) == 0);
    constexpr std::size_t floats = sizeof(T) / sizeof(float);  // NOLINT(bugprone-sizeof-expression)
    return {attribute, static_cast<int>(floats), values.data(), values.size()};
}

/// Under which names the errors of an upload are reported, step by step; null: not at that step.
struct MeshLabels {
    struct OfStream {
        const char* generate = nullptr;
        const char* bind = nullptr;
        const char* data = nullptr;
        const char* pointer = nullptr;
        const char* enable = nullptr;
    };
    const char* generate = nullptr;
    const char* bind = nullptr;
    std::array<OfStream, 2> streams{};
};

/// The labels of the upload that makes the GL objects, and of those that follow.
struct UploadLabels {
    MeshLabels first;
    MeshLabels later;
};

class Mesh {
public:
    Mesh() = default;
    /// Parks the names that release() has not deleted; makes no GL call.
    ~Mesh();
    Mesh(const Mesh&) = delete;
    Mesh& operator=(const Mesh&) = delete;

    /// Creates the GL objects where they are missing and uploads everything. The first stream has
    /// the vertices; a stream with fewer values stays disabled, so that no draw reads beyond it.
    /// Leaves the vertex array and no array buffer bound.
    /// @return false, with nothing uploaded, when the vertex array is of another context.
    bool sync(std::span<const Stream> streams, std::span<const std::uint32_t> indices = {},
              const MeshLabels& labels = {});

    /// Uploads one stream anew, with the same result.
    bool update(const Stream& stream);

    /// Deletes the GL objects.
    void release();

    /// False when there is nothing to bind in the current context: what is drawn or uploaded then
    /// would be the application's.
    bool bind() const;

    /// Whether a step of the last upload has failed.
    bool failed() const { return mFailed; }

    /// Number of vertices in the buffers.
    std::size_t vertexCount() const { return mVertexCount; }
    /// Number of entries in the element buffer.
    std::size_t indexCount() const { return mIndexCount; }

private:
    void upload(const Stream& stream, const MeshLabels::OfStream& labels = {});
    void endStep(const char* label);

    unsigned mVertexArray = 0;
    std::array<unsigned, 6> mBuffers{};  // by attribute location
    unsigned mIndexBuffer = 0;
    std::size_t mVertexCount = 0;
    std::size_t mIndexCount = 0;
    bool mFailed = false;
};

/// Uploads into the mesh, or into a new one when there is none yet or when another drawable shares
/// it. Deletes parked names first, and discards errors that are pending. Leaves no vertex array
/// bound, so that the application cannot change it by mistake.
///
/// Without OpenGL, and after an error, the mesh is left null. In a context that is not the mesh's
/// it stays as it was, unless it was shared.
/// @param label of the errors that no step has reported.
/// @return whether it was done; otherwise it is to be done at the next draw.
bool syncMesh(const char* label, std::shared_ptr<Mesh>& mesh, std::span<const Stream> streams,
              std::span<const std::uint32_t> indices = {}, const UploadLabels& steps = {});

/// Uploads one stream of a mesh that no other drawable shares, with the same outcome.
bool updateMesh(const char* label, std::shared_ptr<Mesh>& mesh, const Stream& stream);

}  // namespace Orlek::Detail
