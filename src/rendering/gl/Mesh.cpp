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

void uploadAll(std::shared_ptr<Mesh>& mesh, std::span<const Stream> streams,
               std::span<const std::uint32_t> indices, const UploadLabels& labels) {
    if (!glReady()) {
        return;
    }
    deleteParkedNames();
    const bool first = mesh == nullptr || mesh.use_count() > 1;
    if (first) {
        mesh = std::make_shared<Mesh>();
    }
    mesh->sync(streams, indices, first ? labels.first : labels.later);
    glBindVertexArray(0);
    if (!mesh->made()) {
        mesh.reset();
    }
}

void dropAfterErrors(const char* label, std::shared_ptr<Mesh>& mesh) {
    if (reportErrors(label)) {
        mesh.reset();
    }
}

}  // namespace

Mesh::~Mesh() {
    parkNames(NameKind::VertexArray, {&mVertexArray, 1});
    parkNames(NameKind::Buffer, mBuffers);
    parkNames(NameKind::Buffer, {&mIndexBuffer, 1});
}

void Mesh::sync(std::span<const Stream> streams, std::span<const std::uint32_t> indices,
                const MeshLabels& labels) {
    if (mVertexArray == 0) {
        glGenVertexArrays(1, &mVertexArray);
        reportStep(labels.generate);
    }
    bind();
    reportStep(labels.bind);
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
}

void Mesh::update(const Stream& stream) {
    bind();
    upload(stream);
}

void Mesh::upload(const Stream& stream, const MeshLabels::OfStream& labels) {
    const auto location = static_cast<GLuint>(stream.attribute);
    unsigned& buffer = mBuffers[location];
    createBuffer(buffer);
    reportStep(labels.generate);
    glBindBuffer(GL_ARRAY_BUFFER, buffer);
    reportStep(labels.bind);
    fillBuffer(GL_ARRAY_BUFFER, stream.values,
               stream.count * static_cast<std::size_t>(stream.components) * sizeof(float));
    reportStep(labels.data);
    if (stream.count < mVertexCount) {
        glDisableVertexAttribArray(location);
    } else {
        glVertexAttribPointer(location, stream.components, GL_FLOAT, GL_FALSE, 0, nullptr);
        reportStep(labels.pointer);
        glEnableVertexAttribArray(location);
    }
    reportStep(labels.enable);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

void Mesh::release() {
    deleteNames(NameKind::VertexArray, {&mVertexArray, 1});
    deleteNames(NameKind::Buffer, mBuffers);
    deleteNames(NameKind::Buffer, {&mIndexBuffer, 1});
    mVertexCount = 0;
    mIndexCount = 0;
}

void Mesh::bind() const {
    glBindVertexArray(mVertexArray);
}

void syncMesh(std::shared_ptr<Mesh>& mesh, std::span<const Stream> streams,
              const UploadLabels& labels) {
    uploadAll(mesh, streams, {}, labels);
}

void syncMesh(const char* label, std::shared_ptr<Mesh>& mesh, std::span<const Stream> streams,
              std::span<const std::uint32_t> indices) {
    if (glReady()) {
        clearErrors();
        uploadAll(mesh, streams, indices, {});
        dropAfterErrors(label, mesh);
    }
}

void updateMesh(const char* label, std::shared_ptr<Mesh>& mesh, const Stream& stream) {
    clearErrors();
    mesh->update(stream);
    dropAfterErrors(label, mesh);
}

}  // namespace Orlek::Detail
