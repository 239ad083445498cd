// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/FixedDrives.h"

#include "drive/MountTable.h"
#include "text/PathText.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>
#include <utility>
#include <vector>

namespace velmora::shell {

namespace {

constexpr unsigned kLoopMajor = 7;
constexpr unsigned kOpticalMajor = 11;

/// A line of the system's list of mounted file systems (proc_pid_mountinfo(5)).
struct Mount {
    std::string point;
    std::string source;
    std::string type;
    dev_t number = 0; ///< major 0: of no one device
    bool isReadOnly = false;
};

/// "MAJOR:MINOR"; what can't be read is 0.
dev_t DeviceNumber(const std::string& field)
{
    unsigned majorPart = 0;
    unsigned minorPart = 0;
    char colon = 0;
    std::istringstream(field) >> majorPart >> colon >> minorPart;
    return makedev(majorPart, minorPart);
}

/// Field 3 is the device, 5 and 6 are the mount point and its options; after the "-" come type,
/// source and the options of the file system itself.
std::optional<Mount> ReadMount(const std::string& line)
{
    std::istringstream fields(line);
    std::string skipped;
    std::string number;
    std::string point;
    std::string options;
    fields >> skipped >> skipped >> number >> skipped >> point >> options;
    while (fields >> skipped && skipped != "-") { }
    std::string source;
    std::string superOptions;
    Mount mount;
    if (!(fields >> mount.type >> source >> superOptions)) {
        return std::nullopt;
    }
    const auto isReadOnly = [](const std::string& list) { return (list + ',').starts_with("ro,"); };
    mount.number = DeviceNumber(number);
    mount.point = drive::PathInMountTable(point);
    mount.source = drive::PathInMountTable(source);
    mount.isReadOnly = isReadOnly(options) || isReadOnly(superOptions);
    return mount;
}

std::vector<Mount> ReadMounts(const std::filesystem::path& file)
{
    std::vector<Mount> mounts;
    std::ifstream lines(file);
    for (std::string line; std::getline(lines, line);) {
        if (auto mount = ReadMount(line)) {
            mounts.push_back(*std::move(mount));
        }
    }
    std::ranges::stable_sort(mounts, {}, &Mount::point);
    return mounts;
}

/// Whether the medium is removable; for a partition its disk tells.
bool IsRemovable(const std::filesystem::path& blockDevices, dev_t device)
{
    const std::string name = std::to_string(major(device)) + ':' + std::to_string(minor(device));
    std::error_code ignored;
    std::filesystem::path folder = std::filesystem::canonical(blockDevices / name, ignored);
    if (std::filesystem::exists(folder / "partition", ignored)) {
        folder = folder.parent_path();
    }
    char answer = '0';
    std::ifstream(folder / "removable") >> answer;
    return answer == '1';
}

/// What distinguishes two drives: the device, or the pool of a file system that spans devices. None
/// if it isn't a fixed drive.
std::optional<std::string> DriveOf(const Mount& mount, const FixedDrivesContext& context)
{
    if (mount.type == "zfs") {
        return mount.source.substr(0, mount.source.find('/'));
    }
    if (!mount.source.starts_with("/dev/")) {
        return std::nullopt;
    }
    // A file system of several devices has no number of its own; a sandbox has no special files.
    const dev_t device = context.deviceOf(mount.source).value_or(mount.number);
    if (major(device) == 0 || major(device) == kLoopMajor || major(device) == kOpticalMajor
        || IsRemovable(context.blockDevices, device)) {
        return std::nullopt;
    }
    return std::to_string(device);
}

} // namespace

std::optional<dev_t> BlockDeviceOf(const std::string& specialFile)
{
    struct stat found { };
    if (stat(specialFile.c_str(), &found) != 0 || !S_ISBLK(found.st_mode)) {
        return std::nullopt;
    }
    return found.st_rdev;
}

QList<text::ProgramPath> ListFixedDrives(const FixedDrivesContext& context)
{
    QList<text::ProgramPath> roots;
    std::set<std::string> seen;
    for (const Mount& mount : ReadMounts(context.mounts)) {
        std::error_code ignored;
        // A single file can be mounted too, as containers do.
        if (mount.isReadOnly || !std::filesystem::is_directory(mount.point, ignored)) {
            continue;
        }
        const auto drive = DriveOf(mount, context);
        if (drive && seen.insert(*drive).second) {
            const bool isRoot = mount.point.ends_with('/');
            roots
                += text::ToProgramPath(text::NativePath(isRoot ? mount.point : mount.point + '/'));
        }
    }
    return roots;
}

} // namespace velmora::shell
