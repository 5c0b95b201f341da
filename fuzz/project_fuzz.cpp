// Both kinds of project file through every reader. Whatever was read must be written and read back as the
// same.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "shell/project_file.h"

using namespace kelvane;

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

DefaultProject readDefault(const QStringList& lines) {
    DefaultProject project;
    readComSetupSection(lines, project.ComSetup);
    readTrendSection(lines, project.Trend);
    readMonitorSection(lines, project.Monitor);
    return project;
}

void tryNamed(const QStringList& lines) {
    NamedProject project;
    readNamedProject(lines, project);
    project.ChannelWidth.fill(project.ChannelWidth[0]);
    NamedProject again;
    require(readNamedProject(projectLines(namedProjectBytes(project)), again).ok());
    require(again == project);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QStringList lines = projectLines(bytes);
    const DefaultProject project = readDefault(lines);
    require(readDefault(projectLines(defaultProjectBytes(project))) == project);
    tryNamed(lines);
    return 0;
}

extern "C" bool kelvaneFuzzSeed(int index, std::vector<uint8_t>* bytes) {
    if (index > 1) return false;
    const QByteArray file = index == 0 ? defaultProjectBytes({}) : namedProjectBytes({});
    bytes->assign(file.begin(), file.end());
    return true;
}
