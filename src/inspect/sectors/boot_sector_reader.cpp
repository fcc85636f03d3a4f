#include "inspect/sectors/boot_sector_reader.h"

#include <utility>

#include "base/text.h"
#include "inspect/sectors/sector_decoder.h"
#include "inspect/sectors/volume_reading.h"

namespace velmora {

BootSectorReader::BootSectorReader(DlgDriveInfo& form, RawVolumes& volumes, Host& host,
                                   const Regional& regional, std::function<void()> closeDialog)
    : form_(form),
      volumes_(volumes),
      host_(host),
      regional_(regional),
      closeDialog_(std::move(closeDialog)) {
    form_.cmdEnter.Click.connect([this] { prcReadBootSector(chosenDrive()); });
    form_.drvDrive.Change.connect([this] {
        if (!offering_) prcReadBootSector(chosenDrive());
    });
}

void BootSectorReader::offerDrives(const std::vector<std::string>& drives) {
    offering_ = true;
    form_.drvDrive.Clear();
    form_.drvDrive.setText("");
    for (const std::string& drive : drives) form_.drvDrive.AddItem(drive);
    if (!drives.empty()) form_.drvDrive.setListIndex(0);
    offering_ = false;
}

std::string BootSectorReader::chosenDrive() const {
    return left(form_.drvDrive.Text(), 2);
}

void BootSectorReader::prcReadBootSector(const std::string& Drive) {
    if (hDrive_ != raw_volume::invalid) volumes_.CloseHandle(hDrive_);
    hDrive_ = openVolume(volumes_, Drive);
    if (hDrive_ == raw_volume::invalid) return failToOpen();
    const auto buffer = readSector(volumes_, hDrive_);
    if (!buffer) return failToRead();
    form_.lblReason.setCaption("");
    prcDecodeBootSector(*buffer);
    prcShowBootDump(*buffer);
}

// The box says nothing of the reason. What is known of it stays in the dialog, also when that is
// opened again, and goes to whoever reads along.
void BootSectorReader::explain() {
    const std::string reason = volumes_.failure();
    form_.lblReason.setCaption(reason);
    if (!reason.empty()) host_.Note(reason);
}

void BootSectorReader::failToOpen() {
    explain();
    host_.MsgBox({.text = "Error opening the drive.\r\nClose some applications and try again.",
                  .icon = BoxIcon::critical});
    closeDialog_();
}

void BootSectorReader::failToRead() {
    explain();
    host_.MsgBox({.text = "Error reading the drive.", .icon = BoxIcon::critical});
    form_.txtBytes.setText("");
    form_.txtChar.setText("");
    form_.lvInfo.Clear();
}

void BootSectorReader::prcDecodeBootSector(const std::string& Buffer) {
    form_.lvInfo.Clear();
    const std::string name = fFileSystemName(chosenDrive());
    if (name == "FAT12" || name == "FAT16") return prcDecodeFat1216(Buffer);
    if (name == "FAT32") return prcDecodeFat32(Buffer);
    if (name == "NTFS") return prcDecodeNtfs(Buffer);
}

void BootSectorReader::prcDecodeFat1216(const std::string& Buffer) {
    showRecord(Buffer, sector::bootSectorFat1216);
}

void BootSectorReader::prcDecodeNtfs(const std::string& Buffer) {
    showRecord(Buffer, sector::bootSectorNtfs);
}

void BootSectorReader::prcDecodeFat32(const std::string& Buffer) {
    showRecord(Buffer, sector::bootSectorFat32);
    if (const auto block = readInformationBlock(volumes_, hDrive_, Buffer)) {
        showRecord(*block, sector::fsInfoSector);
    }
}

void BootSectorReader::showRecord(const std::string& sector, std::span<const SectorField> fields) {
    for (const SectorRow& row : decodeSector(sector, fields, regional_)) {
        prcAddInfoRow(row.label, row.value);
    }
}

void BootSectorReader::prcAddInfoRow(const std::string& Label, const std::string& Value) {
    form_.lvInfo.Add(Label).setSubItems(1, Value);
}

void BootSectorReader::prcShowBootDump(const std::string& Buffer) {
    const SectorDump dump = dumpOf(Buffer);
    form_.txtBytes.setText(dump.bytes);
    form_.txtChar.setText(dump.characters);
}

std::string BootSectorReader::fFileSystemName(const std::string& Drive) {
    return fileSystemName(volumes_, Drive);
}

void BootSectorReader::closeVolume() {
    volumes_.CloseHandle(std::exchange(hDrive_, raw_volume::invalid));
}

}  // namespace velmora
