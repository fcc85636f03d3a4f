#include <algorithm>

#include "base/runtime_error.h"
#include "fake/fake_parts.h"

namespace velmora::fake {

void FakeMachine::Disks::requireOpenable(const std::string& path) {
    if (auto locked = findPath(machine.lockedFiles, path); locked != machine.lockedFiles.end())
        throw RuntimeError(locked->second);
    const auto end = path.find_last_of("\\/");
    if (end == std::string::npos || !hasFolder(path.substr(0, end)))
        throw RuntimeError(error::pathNotFound);
    if (hasFolder(path)) throw RuntimeError(error::pathFileAccess);
}

std::string& FakeMachine::Disks::openForWriting(const std::string& path) {
    requireOpenable(path);
    auto file = findPath(machine.files, path);
    if (file == machine.files.end()) file = machine.files.emplace(path, "").first;
    return file->second;
}

void FakeMachine::Disks::appendLine(const std::string& path, std::string_view text) {
    machine.record("appendLine " + path);
    std::string& content = openForWriting(path);
    if (machine.diskFull) throw RuntimeError(error::diskFull);
    content.append(text).append(lineEnd);
}

std::string FakeMachine::Disks::readAll(const std::string& path) {
    machine.record("readAll " + path);
    requireOpenable(path);
    const auto file = findPath(machine.files, path);
    if (file == machine.files.end()) throw RuntimeError(error::fileNotFound);
    return file->second;
}

void FakeMachine::Disks::writeOver(const std::string& path, std::string_view content,
                                   Overwriting how) {
    machine.record("writeOver " + path);
    std::string& old = openForWriting(path);
    if (how.isPrivate) machine.privateFiles.insert(keyOf(path));
    const auto room = machine.diskFull ? old.size() : content.size();
    if (how.reservesRoom && content.size() > room) throw RuntimeError(error::diskFull);
    old = content.substr(0, room);
    if (content.size() > room) throw RuntimeError(error::diskFull);
}

double FakeMachine::Disks::FileLen(const std::string& path) {
    machine.record("FileLen " + path);
    if (!showsFilesOf(path)) throw RuntimeError(error::fileNotFound);
    return sizeOf(path);
}

void FakeMachine::Disks::remove(const std::string& path) {
    machine.record("remove " + path);
    if (machine.readOnly.count(keyOf(path)) > 0) throw RuntimeError(error::pathFileAccess);
    if (auto locked = findPath(machine.lockedFiles, path); locked != machine.lockedFiles.end())
        throw RuntimeError(locked->second);
    if (hasFolder(path)) throw RuntimeError(error::pathFileAccess);
    const auto file = findPath(machine.files, path);
    if (file == machine.files.end() || !showsFilesOf(path)) throw RuntimeError(error::fileNotFound);
    machine.files.erase(file);
    if (const auto size = findPath(machine.sizes, path); size != machine.sizes.end())
        machine.sizes.erase(size);
}

}  // namespace velmora::fake
