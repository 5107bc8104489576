#include "rendering/gl/Mesh.h"

#include <GL/glew.h>

#include "rendering/gl/EntryPoints.h"
#include "rendering/gl/Errors.h"
#include "rendering/gl/Names.h"

namespace Orlek::Detail {

namespace {

void createBuffer(unsigned& name) {
    if (name == 0) {
        glGenBuffers(1, &name);
    }
}

void fillBuffer(GLenum target, const void* values, std::size_t bytes) {
    glBufferData(target, static_cast<GLsizeiptr>(bytes), values, GL_STATIC_DRAW);
}

// How an upload into a mesh has ended, and what becomes of the mesh.
bool endUpload(const char* label, std::shared_ptr<Mesh>& mesh, bool bound) {
    glBindVertexArray(0);
    const bool clean = !reportErrors(label) && !mesh->failed();
    if (bound && !clean) {
        mesh.reset();
    }
    return bound && clean;
}

}  // namespace

Mesh::~Mesh() {
    parkNames(NameKind::VertexArray, {&mVertexArray, 1});
    parkNames(NameKind::Buffer, mBuffers);
    parkNames(NameKind::Buffer, {&mIndexBuffer, 1});
}

bool Mesh::sync(std::span<const Stream> streams, std::span<const std::uint32_t> indices,
                const MeshLabels& labels) {
    mFailed = false;
    if (mVertexArray == 0) {
        glGenVertexArrays(1, &mVertexArray);
        endStep(labels.generate);
    }
    const bool bound = bind();
    endStep(labels.bind);
    if (!bound) {
        return false;
    }
    mVertexCount = streams.empty() ? 0 : streams.front().count;
    for (std::size_t i = 0; i < streams.size(); ++i) {
        upload(streams[i], i < labels.streams.size() ? labels.streams[i] : MeshLabels::OfStream{});
    }
    mIndexCount = indices.size();
    if (mIndexCount > 0) {
        createBuffer(mIndexBuffer);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, mIndexBuffer);
        fillBuffer(GL_ELEMENT_ARRAY_BUFFER, indices.data(), indices.size_bytes());
    }
    return true;
}

bool Mesh::update(const Stream& stream) {
    mFailed = false;
    if (!bind()) {
        return false;
    }
    upload(stream);
    return true;
}

void Mesh::upload(const Stream& stream, const MeshLabels::OfStream& labels) {
    const auto location = static_cast<GLuint>(stream.attribute);
    unsigned& buffer = mBuffers[location];
    createBuffer(buffer);
    endStep(labels.generate);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    endStep(labels.bind);
    fillBuffer(GL_ARRAY_BUFFER, stream.values,
               stream.count * static_cast<std::size_t>(stream.components) * sizeof(float));
    endStep(labels.data);
    if (stream.count < mVertexCount) {
        glDisableVertexAttribArray(location);
    } else {
        glVertexAttribPointer(location, stream.components, GL_FLOAT, GL_FALSE, 0, nullptr);
        endStep(labels.pointer);
        glEnableVertexAttribArray(location);
    }
    endStep(labels.enable);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void Mesh::endStep(const char* label) {
    if (label != nullptr && reportErrors(label)) {
        mFailed = true;
    }
}

void Mesh::release() {
    deleteNames(NameKind::VertexArray, {&mVertexArray, 1});
    deleteNames(NameKind::Buffer, mBuffers);
    deleteNames(NameKind::Buffer, {&mIndexBuffer, 1});
    mVertexCount = 0;
    mIndexCount = 0;
}

bool Mesh::bind() const {
    glBindVertexArray(mVertexArray);
    GLint bound = 0;
    glGetIntegerv(GL_VERTEX_ARRAY_BINDING, &bound);
    return bound != 0 && static_cast<unsigned>(bound) == mVertexArray;
}

bool syncMesh(const char* label, std::shared_ptr<Mesh>& mesh, std::span<const Stream> streams,
              std::span<const std::uint32_t> indices, const UploadLabels& steps) {
    if (!glReady()) {
        return false;
    }
    deleteParkedNames();
    clearErrors();
    const bool first = mesh == nullptr || mesh.use_count() > 1;
    if (first) {
        mesh = std::make_shared<Mesh>();
    }
    const bool bound = mesh->sync(streams, indices, first ? steps.first : steps.later);
    const bool done = endUpload(label, mesh, bound);
    if (first && !bound) {  // without a context there are no names
        mesh.reset();
    }
    return done;
}

bool updateMesh(const char* label, std::shared_ptr<Mesh>& mesh, const Stream& stream) {
    clearErrors();
    return endUpload(label, mesh, mesh->update(stream));
}

}  // namespace Orlek::Detail
