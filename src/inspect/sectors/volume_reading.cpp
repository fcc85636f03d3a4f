#include "inspect/sectors/volume_reading.h"

#include "base/scope_guard.h"
#include "base/text.h"
#include "inspect/sectors/sector_text.h"

namespace velmora {

namespace {

void addRows(VolumeReport& report, const std::string& sector, std::span<const SectorField> fields,
             const Regional& regional) {
    for (SectorRow& row : decodeSector(sector, fields, regional)) {
        report.rows.push_back(std::move(row));
    }
}

VolumeReport failed(const char* what, RawVolumes& volumes) {
    const std::string reason = volumes.failure();
    return {.failure = reason.empty() ? what : what + (": " + reason)};
}

}  // namespace

VolumeHandle openVolume(RawVolumes& volumes, const std::string& drive) {
    return volumes.CreateFileA(R"(\\.\)" + drive, raw_volume::genericRead,
                               raw_volume::shareReadAndWrite, raw_volume::openExisting);
}

std::optional<std::string> readSector(RawVolumes& volumes, VolumeHandle volume) {
    std::string buffer(sector::size, '\0');
    std::uint32_t read = 0;
    if (!volumes.ReadFile(volume, buffer, sector::size, read)) return std::nullopt;
    if (read != sector::size) return std::nullopt;
    return buffer;
}

std::optional<std::string> readInformationBlock(RawVolumes& volumes, VolumeHandle volume,
                                                const std::string& bootSector) {
    const auto word = static_cast<std::int16_t>(unsignedAt(bootSector, sector::fsInfoPlace, 2));
    volumes.SetFilePointer(volume, fWordToLong(word), 0, raw_volume::fromStart);
    return readSector(volumes, volume);
}

std::string fileSystemName(RawVolumes& volumes, const std::string& drive) {
    constexpr std::size_t nameBuffer = 16;
    std::string label(nameBuffer, ' ');
    std::string name(nameBuffer, ' ');
    volumes.GetVolumeInformationA(drive + '\\', label, name);
    return asciiUpperCase(fCutAtNull(name));
}

VolumeReport readVolume(RawVolumes& volumes, const std::string& drive, const Regional& regional) {
    const VolumeHandle volume = openVolume(volumes, drive);
    if (volume == raw_volume::invalid) return failed("the drive can't be opened", volumes);
    const ScopeGuard close([&] { volumes.CloseHandle(volume); });
    const auto boot = readSector(volumes, volume);
    if (!boot) return failed("the drive can't be read", volumes);
    VolumeReport report{.fileSystem = fileSystemName(volumes, drive), .dump = dumpOf(*boot)};
    const auto fields = recordOf(report.fileSystem);
    addRows(report, *boot, fields, regional);
    if (report.fileSystem == "FAT32") {
        if (const auto block = readInformationBlock(volumes, volume, *boot)) {
            addRows(report, *block, sector::fsInfoSector, regional);
        }
    }
    return report;
}

}  // namespace velmora
