#include "device/ply_file.h"

#include <cstdlib>
#include <cstring>
#include <new>

#include "core/file_version.h"
#include "core/levels.h"
#include "core/messages.h"
#include "device/writers.h"
#include "quilla/quilla.h"

namespace quilla {
namespace {

constexpr int kFileError = 36, kNoMemory = 53, kAlreadyOn = 190, kNotOn = 191;
constexpr int kFirstLimit = 256, kLargestLimit = 1 << 28;

// Room for `more` elements; false if there is no memory.
template <class T> bool makeRoom(T*& elements, int count, int& limit, int more) {
  if (more <= limit - count) return true;
  if (more > kLargestLimit - count) return false;
  int wanted = limit == 0 ? kFirstLimit : limit;
  while (wanted < count + more) wanted *= 2;
  void* grown = std::realloc(elements, sizeof(T) * static_cast<std::size_t>(wanted));
  if (!grown) return false;
  elements = static_cast<T*>(grown);
  limit = wanted;
  return true;
}

void writeHeader(OutputBuffer* out, const PlyMesh& mesh, const char* object) {
  TextLine line;
  putText(out, "ply\nformat ascii 1.0\ncomment author: Quilla\ncomment object: ");
  putText(out, object);
  addText(line, "\nelement vertex");
  addInteger(line, mesh.vertexCount);
  addText(line, "\nproperty float x\nproperty float y\nproperty float z\n"
                "property uchar red\nproperty uchar green\nproperty uchar blue\nelement face");
  addInteger(line, mesh.faceCount);
  addText(line, "\nproperty list uchar int vertex_indices\nend_header\n");
  putText(out, textOf(line));
}

void writeMesh(OutputBuffer* out, const PlyMesh& mesh) {
  constexpr int kDecimals = 6;
  for (int i = 0; i < mesh.vertexCount; ++i) {
    const PlyVertex& v = mesh.vertices[i];
    TextLine line;
    for (float value : {v.x, v.y, v.z}) addReal(line, static_cast<double>(value), kDecimals);
    for (int component : {v.r, v.g, v.b}) addInteger(line, component);
    addText(line, "\n");
    putText(out, textOf(line));
  }
  for (int at = 0; at < mesh.faceWords;) {
    char number[kFixedTextSize];
    const int corners = mesh.faces[at];
    for (int k = 0; k <= corners; ++k, ++at) {
      if (k > 0) putText(out, " ");
      putBytes(out, number, static_cast<int>(putInteger(number, mesh.faces[at]) - number));
    }
    putText(out, "\n");
  }
}

} // namespace

int plyVertex(PlotState* s, const PlyVertex& vertex) {
  PlyMesh& mesh = *s->device.ply;
  if (!makeRoom(mesh.vertices, mesh.vertexCount, mesh.vertexLimit, 1)) {
    warnPlain(s, kNoMemory);
    return -1;
  }
  mesh.vertices[mesh.vertexCount] = vertex;
  return mesh.vertexCount++;
}

bool plyFace(PlotState* s, const int* corners, int n) {
  PlyMesh& mesh = *s->device.ply;
  if (n < 1 || n > kLargestLimit - 1 || !makeRoom(mesh.faces, mesh.faceWords, mesh.faceLimit, n + 1)) {
    warnPlain(s, kNoMemory);
    return false;
  }
  mesh.faces[mesh.faceWords++] = n;
  for (int i = 0; i < n; ++i) mesh.faces[mesh.faceWords++] = corners[i];
  ++mesh.faceCount;
  return true;
}

void plyWrite(PlotState* s, const char* name, const char* object) {
  char file[kFileNameLength + 1];
  copyText(file, name, kFileNameLength);
  const int refused = versionFileName(s, file);
  if (refused != kVersionFine) {
    warnPlain(s, refused);
  } else if (OutputBuffer* out = openOutput(file, "w")) {
    writeHeader(out, *s->device.ply, object);
    writeMesh(out, *s->device.ply);
    if (!closeOutput(out)) warnWithString(s, kFileError, file);
  } else {
    warnWithString(s, kFileError, file);
  }
  plyFree(s);
}

void plyFree(PlotState* s) {
  if (!s->device.ply) return;
  std::free(s->device.ply->vertices);
  std::free(s->device.ply->faces);
  delete s->device.ply;
  s->device.ply = nullptr;
}

} // namespace quilla

using namespace quilla;

void PLYINI(const char* mode) {
  PlotState* s = setterCheck("plyini");
  if (!s || !matchKeyword(s, "STAN", 1, mode)) return;
  if (plyCollects(s)) return warnWithText(s, kAlreadyOn, "Output to PLY format is already enabled");
  s->device.ply = new (std::nothrow) PlyMesh;
  if (!s->device.ply) warnPlain(s, kNoMemory);
}

void PLYFIN(const char* name, const char* object) {
  PlotState* s = strictCheck(1, 3, "plyfin");
  if (!s) return;
  if (!plyCollects(s)) return warnWithText(s, kNotOn, "Output to PLY format is not enabled");
  plyWrite(s, name, object);
}
