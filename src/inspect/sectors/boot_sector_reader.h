// The panel of the drive information dialog that reads the first sector of a volume and decodes it.
// Nothing is ever written to a volume.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "base/regional.h"
#include "forms/dlg_drive_info.h"
#include "inspect/sectors/sector_fields.h"
#include "platform/host.h"
#include "platform/raw_volumes.h"

namespace velmora {

class BootSectorReader {
  public:
    /// `closeDialog` unloads the dialog. All must outlive it.
    BootSectorReader(DlgDriveInfo& form, RawVolumes& volumes, Host& host, const Regional& regional,
                     std::function<void()> closeDialog);
    BootSectorReader(const BootSectorReader&) = delete;
    BootSectorReader& operator=(const BootSectorReader&) = delete;

    /// Opens, reads, decodes and dumps a drive ("C:"). A box says what failed; after a failing open
    /// the dialog is closed.
    void prcReadBootSector(const std::string& Drive);
    /// Fills `lvInfo` from a sector, by the file system of the chosen drive. A file system that
    /// isn't known gives no rows.
    void prcDecodeBootSector(const std::string& Buffer);
    /// Fills `txtBytes` and `txtChar`.
    void prcShowBootDump(const std::string& Buffer);
    void prcDecodeFat1216(const std::string& Buffer);
    /// Its last two rows come from another sector of the volume, which is read here.
    void prcDecodeFat32(const std::string& Buffer);
    void prcDecodeNtfs(const std::string& Buffer);
    void prcAddInfoRow(const std::string& Label, const std::string& Value);
    /// The name of a drive's file system in capitals.
    std::string fFileSystemName(const std::string& Drive);

    /// Offers these drives ("C:") and chooses the first, without reading it.
    void offerDrives(const std::vector<std::string>& drives);
    /// Closes the volume, whether or not one is open.
    void closeVolume();
    VolumeHandle hDrive() const { return hDrive_; }

  private:
    std::string chosenDrive() const;
    void showRecord(const std::string& sector, std::span<const SectorField> fields);
    void explain();
    void failToOpen();
    void failToRead();

    DlgDriveInfo& form_;
    RawVolumes& volumes_;
    Host& host_;
    const Regional& regional_;
    std::function<void()> closeDialog_;
    VolumeHandle hDrive_ = raw_volume::invalid;
    bool offering_ = false;
};

}  // namespace velmora
