#include "platform/linux/desktop/linux_shell32.h"

#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"
#include "platform/file_system_object.h"
#include "platform/linux/desktop/desktop_dialogs.h"
#include "platform/linux/entries/opened_parent.h"
#include "platform/linux/entries/replace_file.h"
#include "platform/linux/paths/file_uri.h"
#include "platform/linux/paths/path_mapping.h"
#include "platform/linux/paths/user_folders.h"
#include "platform/linux/programs/program_order.h"
#include "platform/linux/system/system_errors.h"
#include "platform/linux/trash/file_operation.h"
#include "platform/linux/trash/trash.h"

namespace velmora::linuxhost {

namespace {

constexpr std::int32_t invalidArgument = static_cast<std::int32_t>(0x80070057);
constexpr std::int32_t failed = static_cast<std::int32_t>(0x80004005);

constexpr std::int32_t notFound = code::fileNotFound;
constexpr std::int32_t notAllowed = code::accessDenied;
constexpr std::int32_t taken = 33;

std::string scriptFolder() {
    std::string folder = dataFolder() + "/nautilus/scripts";
    return makeFolders(folder) == 0 ? folder : std::string{};
}

// "scheme:" with two letters at least; one letter is a drive.
bool isAddress(const std::string& text) {
    const auto colon = text.find(':');
    return colon != std::string::npos && colon >= 2 &&
           text.find_first_not_of("abcdefghijklmnopqrstuvwxyz+-.0123456789") == colon;
}

// The address of a place that only the system's file manager knows, given as the only parameter of
// that program; empty for one without a counterpart, and nothing for every other order.
std::optional<std::string> addressOfShellPlace(const std::string& file,
                                               const std::string& parameters) {
    if (lowerCase(file) != "explorer" || !parameters.starts_with("::")) return std::nullopt;
    const bool isRecycleBin = lowerCase(parameters) == "::{645ff040-5081-101b-9f08-00aa002f954e}";
    return isRecycleBin ? "trash:///" : "";
}

bool isDiskCleaner(const std::string& file) {
    const std::string name = lowerCase(file);
    return name == "cleanmgr" || name == "cleanmgr.exe";
}

std::string folderOf(const std::string& hostPath) {
    return hostPath.substr(0, hostPath.rfind('/') + 1);
}

bool hasTakenOrder(ChildPrograms::Result result) {
    return result == ChildPrograms::Result::done || result == ChildPrograms::Result::running;
}

}  // namespace

std::int32_t LinuxShell32::SHGetSpecialFolderLocation(std::int32_t csidl, ItemIdList& list) {
    std::string folder;
    switch (csidl) {
        case 5:
            folder = userFolder("XDG_DOCUMENTS_DIR", "Documents");
            break;
        case 9:
            folder = scriptFolder();
            break;
        case 16:
            folder = userFolder("XDG_DESKTOP_DIR", "Desktop");
            break;
        case 26:
            folder = configFolder();
            break;
        case 40:
            folder = homeFolder();
            break;
        default:
            return invalidArgument;
    }
    if (folder.empty()) return failed;
    std::string place = drivePathOf(folder, volumes_.roots());
    if (place.empty()) return failed;
    list.place = std::move(place);
    return 0;
}

std::int32_t LinuxShell32::ShellExecuteA(const std::string&, const std::string& operation,
                                         const std::string& file, const std::string& parameters,
                                         const std::string&, std::int32_t) {
    const std::string address =
        addressOfShellPlace(file, parameters).value_or(isAddress(file) ? file : "");
    if (!address.empty()) {
        return hasTakenOrder(programs_.run({"xdg-open", address})) ? taken : notFound;
    }
    if (isDiskCleaner(file)) return openDiskCleaner();
    const std::string hostPath = volumes_.hostPathOf(file);
    const FileKind kind = volumes_.kindOf(hostPath);
    if (kind != FileKind::file && kind != FileKind::folder) return notFound;
    if (kind == FileKind::file && lowerCase(operation) == "open" && isProgram(hostPath))
        return run(hostPath, parameters, folderOf(hostPath)) ? taken : notAllowed;
    return hasTakenOrder(programs_.run({"xdg-open", hostPath})) ? taken : notFound;
}

std::int32_t LinuxShell32::openDiskCleaner() {
    for (const char* name : {"bleachbit", "stacer", "baobab"}) {
        const std::string program = programInPath(name);
        if (!program.empty() && programs_.start({program})) return taken;
    }
    return notFound;
}

bool LinuxShell32::run(const std::string& program, const std::string& arguments,
                       const std::string& folder) {
    std::vector<std::string> command{program};
    for (std::string& each : hostArguments(arguments, volumes_.roots()))
        command.push_back(std::move(each));
    return programs_.start(command, folder);
}

std::string LinuxShell32::programOf(const std::string& name) {
    if (name.find_first_of("\\/:") == std::string::npos) return programInPath(name);
    std::string path = volumes_.hostPathOf(name);
    const auto isFile = [&] { return volumes_.kindOf(path) == FileKind::file; };
    if (isFile()) return path;
    if (!lowerCase(path).ends_with(".exe")) return {};
    path.resize(path.size() - 4);
    return isFile() ? path : std::string{};
}

void LinuxShell32::Shell(const std::string& commandLine, std::int32_t) {
    ProgramOrder order = programOrder(commandLine);
    if (order.program.empty()) throw RuntimeError(error::invalidCall);
    std::string program;
    if (isTextEditor(order.program)) {
        program = volumes_.hostPathOf(replaceAll(order.rest, "\"", ""));
    } else {
        // A path alone may have blanks without quotes around it.
        program = driveNameOf(trim(commandLine)).empty() ? "" : programOf(trim(commandLine));
        if (!program.empty()) order.rest.clear();
        if (program.empty()) program = programOf(order.program);
        if (!program.empty() && isProgram(program)) {
            if (!run(program, order.rest, {})) throw RuntimeError(error::invalidCall);
            return;
        }
    }
    if (program.empty() || !programs_.start({"xdg-open", program}))
        throw RuntimeError(error::fileNotFound);
}

std::int32_t LinuxShell32::SHFileOperationA(const FileOperation& operation) {
    return removeByShell(volumes_, operation);
}

bool LinuxShell32::ShellExecuteEx(const ShellExecuteInfo& info) {
    const std::string hostPath = volumes_.hostPathOf(info.file);
    if (volumes_.kindOf(hostPath) == FileKind::none) return false;
    const std::string verb = lowerCase(info.verb);
    if (verb == "properties") return showProperties(hostPath);
    if (verb != "open" && verb != "explore" && !verb.empty()) return false;
    return hasTakenOrder(programs_.run({"xdg-open", hostPath}));
}

Browse LinuxShell32::SHBrowseForFolder(const BrowseInfo& info, ItemIdList& list) {
    const auto folder = chooseFolder(info.title, info.whileOpen);
    if (!folder) return Browse::unavailable;
    if (folder->empty()) return Browse::dismissed;
    list.place = drivePathOf(withoutLinksAbove(*folder, volumes_), volumes_.roots());
    return Browse::chosen;
}

std::int32_t LinuxShell32::SHEmptyRecycleBinA(const std::string&, const std::string& root,
                                              std::uint32_t flags) {
    constexpr std::uint32_t noConfirmation = 1;
    auto drives = drivesToEmpty(root, volumes_.roots());
    if (drives.empty()) return code::invalidDrive;
    // One that doesn't answer would keep the whole program waiting.
    std::erase_if(drives, [&](const DriveRoot& each) { return !volumes_.measure(each.drive); });
    if (drives.empty()) return code::notReady;
    const std::string what = root.empty() ? "all drives" : "this drive";
    if ((flags & noConfirmation) == 0 &&
        !isConfirmed("Empty Trash", "Remove everything in the trash of " + what + " for good?"))
        return code::cancelled;
    return emptyTrash(drives, volumes_.roots());
}

bool LinuxShell32::showProperties(const std::string& hostPath) {
    const char* bus = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (!bus || !*bus) return false;
    const std::string name = "org.freedesktop.FileManager1";
    const std::string object = "/org/freedesktop/FileManager1";
    const std::string method = name + ".ShowItemProperties";
    const std::string uri = fileUri(hostPath);
    auto result =
        programs_.run({"gdbus", "call", "--session", "--timeout", "5", "--dest", name,
                       "--object-path", object, "--method", method, "['" + uri + "']", "''"});
    if (result == ChildPrograms::Result::missing)
        result =
            programs_.run({"dbus-send", "--session", "--print-reply", "--reply-timeout=5000",
                           "--dest=" + name, object, method, "array:string:" + uri, "string:"});
    return hasTakenOrder(result);
}

}  // namespace velmora::linuxhost
