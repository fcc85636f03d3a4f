#include "platform/windows/volumes/volume_calls.h"

#include "platform/windows/system/system_errors.h"

namespace velmora::windows {

namespace {

class SystemVolumeCalls final : public VolumeCalls {
  public:
    DWORD open(const std::wstring& path, DWORD share, HANDLE& handle) override {
        handle = CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
        return resultOf(handle != INVALID_HANDLE_VALUE);
    }

    DWORD read(HANDLE handle, char* buffer, DWORD bytes, DWORD& read) override {
        return resultOf(ReadFile(handle, buffer, bytes, &read, nullptr));
    }

    DWORD seek(HANDLE handle, std::uint64_t position) override {
        LARGE_INTEGER distance{};
        distance.QuadPart = static_cast<LONGLONG>(position);
        const DWORD low = SetFilePointer(handle, static_cast<LONG>(distance.LowPart),
                                         &distance.HighPart, FILE_BEGIN);
        return low == INVALID_SET_FILE_POINTER ? GetLastError() : ERROR_SUCCESS;
    }

    void close(HANDLE handle) override { CloseHandle(handle); }

    DWORD information(const std::wstring& root, std::wstring& label,
                      std::wstring& fileSystem) override {
        wchar_t labelText[MAX_PATH + 1]{};
        wchar_t nameText[MAX_PATH + 1]{};
        const DWORD result =
            resultOf(GetVolumeInformationW(root.c_str(), labelText, MAX_PATH + 1, nullptr, nullptr,
                                           nullptr, nameText, MAX_PATH + 1));
        label = labelText;
        fileSystem = nameText;
        return result;
    }

    std::uint32_t driveType(const std::wstring& root) override {
        return GetDriveTypeW(root.c_str());
    }

    DWORD space(const std::wstring& root, DiskFreeSpace& clusters, SpaceInBytes& bytes) override {
        DWORD perCluster = 0;
        DWORD perSector = 0;
        DWORD freeClusters = 0;
        DWORD totalClusters = 0;
        if (!GetDiskFreeSpaceW(root.c_str(), &perCluster, &perSector, &freeClusters,
                               &totalClusters))
            return GetLastError();
        clusters = {.sectorsPerCluster = perCluster,
                    .bytesPerSector = perSector,
                    .numberOfFreeClusters = freeClusters,
                    .totalNumberOfClusters = totalClusters};
        ULARGE_INTEGER freeToCaller{};
        ULARGE_INTEGER total{};
        if (GetDiskFreeSpaceExW(root.c_str(), &freeToCaller, &total, nullptr))
            bytes = {.free = freeToCaller.QuadPart, .total = total.QuadPart};
        return ERROR_SUCCESS;
    }
};

}  // namespace

std::shared_ptr<VolumeCalls> systemVolumeCalls() {
    return std::make_shared<SystemVolumeCalls>();
}

}  // namespace velmora::windows
