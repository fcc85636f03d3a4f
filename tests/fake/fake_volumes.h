// Raw volumes in memory: their bytes, their file systems, and what fails.
#pragma once

#include <algorithm>
#include <limits>
#include <map>
#include <string>
#include <vector>

#include "base/text.h"
#include "platform/raw_volumes.h"

namespace velmora::fake {

struct FakeVolume {
    std::string bytes = {};
    std::string label = {};
    std::string fileSystem = {};
    std::uint32_t type = 3;
    DiskFreeSpace space = {};
    bool answers = true;  ///< whether GetDiskFreeSpaceA does
    bool opens = true;
    bool reads = true;
    int goodReads = std::numeric_limits<int>::max();  ///< later ones fill the buffer and fail
    bool isNamed = true;                              ///< whether GetVolumeInformationA answers
};

class FakeRawVolumes final : public RawVolumes {
  public:
    VolumeHandle CreateFileA(const std::string& path, std::uint32_t access, std::uint32_t share,
                             std::uint32_t disposition) override {
        calls.push_back("CreateFileA " + path + ' ' + std::to_string(access) + ' ' +
                        std::to_string(share) + ' ' + std::to_string(disposition));
        if (access != raw_volume::genericRead) return raw_volume::invalid;
        const auto found = volumes.find(path.substr(std::min<std::size_t>(4, path.size())));
        if (found == volumes.end() || !found->second.opens) return raw_volume::invalid;
        open_[++last_] = {found->first, 0};
        return last_;
    }
    bool ReadFile(VolumeHandle volume, std::string& buffer, std::uint32_t bytes,
                  std::uint32_t& read) override {
        calls.push_back("ReadFile " + std::to_string(volume) + ' ' + std::to_string(bytes));
        const auto open = open_.find(volume);
        if (open == open_.end() || !volumes[open->second.drive].reads) return false;
        const std::string& all = volumes[open->second.drive].bytes;
        std::uint64_t& place = open->second.place;
        const std::string part = place < all.size() ? all.substr(place, bytes) : "";
        buffer.replace(0, part.size(), part);
        place += part.size();
        read = static_cast<std::uint32_t>(part.size());
        return volumes[open->second.drive].goodReads-- > 0;
    }
    std::uint32_t SetFilePointer(VolumeHandle volume, std::int32_t low, std::int32_t high,
                                 std::uint32_t method) override {
        calls.push_back("SetFilePointer " + std::to_string(volume) + ' ' + std::to_string(low) +
                        ' ' + std::to_string(high) + ' ' + std::to_string(method));
        const auto open = open_.find(volume);
        if (open == open_.end()) return 0xFFFFFFFF;
        open->second.place = static_cast<std::uint64_t>(low);
        return static_cast<std::uint32_t>(low);
    }
    bool CloseHandle(VolumeHandle volume) override {
        calls.push_back("CloseHandle " + std::to_string(volume));
        return open_.erase(volume) > 0;
    }
    std::string failure() override { return reason; }
    bool GetVolumeInformationA(const std::string& root, std::string& volumeName,
                               std::string& fileSystemName) override {
        calls.push_back("GetVolumeInformationA " + root);
        const auto found = volumes.find(root.substr(0, 2));
        nameBuffers.assign({volumeName, fileSystemName});
        if (found == volumes.end() || !found->second.isNamed) return false;
        const std::string label = found->second.label + '\0';
        const std::string name = found->second.fileSystem + '\0';
        volumeName.replace(0, label.size(), label);
        fileSystemName.replace(0, name.size(), name);
        return true;
    }
    std::uint32_t GetDriveTypeA(const std::string& root) override {
        calls.push_back("GetDriveTypeA " + root);
        const auto found = volumes.find(root.substr(0, 2));
        return found == volumes.end() ? 1 : found->second.type;
    }
    bool GetDiskFreeSpaceA(const std::string& root, DiskFreeSpace& space) override {
        calls.push_back("GetDiskFreeSpaceA " + root);
        const auto found = volumes.find(root.substr(0, 2));
        if (found == volumes.end() || !found->second.answers) return false;
        space = found->second.space;
        return true;
    }

    std::map<std::string, FakeVolume> volumes;  ///< by drive ("C:")
    std::string reason;                         ///< what failure() says
    std::vector<std::string> calls;
    std::vector<std::string> nameBuffers;  ///< both as the last GetVolumeInformationA got them
    int openHandles() const { return static_cast<int>(open_.size()); }

  private:
    struct Open {
        std::string drive;
        std::uint64_t place = 0;
    };
    std::map<VolumeHandle, Open> open_;
    VolumeHandle last_ = 0;
};

}  // namespace velmora::fake
