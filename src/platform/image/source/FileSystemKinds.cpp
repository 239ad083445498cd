// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "image/source/FileSystemKinds.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/statfs.h>
#include <sys/sysmacros.h>

namespace velmora::image {

namespace {

using Magic = decltype(statfs::f_type);

// These have no names in the system's headers.
constexpr Magic kConfigFs = 0x62656570;
constexpr Magic kFuseControl = 0x65735543;
constexpr Magic kMessageQueues = 0x19800202;

constexpr std::array kMadeUpByTheKernel {
    Magic {PROC_SUPER_MAGIC},
    Magic {SYSFS_MAGIC},
    Magic {DEBUGFS_MAGIC},
    Magic {TRACEFS_MAGIC},
    Magic {SECURITYFS_MAGIC},
    Magic {SELINUX_MAGIC},
    Magic {SMACK_MAGIC},
    Magic {CGROUP_SUPER_MAGIC},
    Magic {CGROUP2_SUPER_MAGIC},
    Magic {BINFMTFS_MAGIC},
    Magic {BPF_FS_MAGIC},
    Magic {NSFS_MAGIC},
    kConfigFs,
    kFuseControl,
    kMessageQueues,
};

constexpr std::array kFleetingInodes {
    Magic {MSDOS_SUPER_MAGIC},
    Magic {EXFAT_SUPER_MAGIC},
    Magic {CIFS_SUPER_MAGIC},
    Magic {SMB2_SUPER_MAGIC},
    Magic {FUSE_SUPER_MAGIC},
};

template <class Kinds> bool IsOneOf(const Kinds& kinds, const struct statfs& found)
{
    return std::ranges::find(kinds, found.f_type) != kinds.end();
}

} // namespace

bool MayHideItsSize(const struct stat& status)
{
    // A file system on a disk has a device with a driver; one that the kernel makes up has none.
    return status.st_size == 0 && status.st_blocks == 0 && ::major(status.st_dev) == 0;
}

bool TellsNoSizes(int directory, const char* name)
{
    struct statfs found { };
    const int told = directory == AT_FDCWD ? ::statfs(name, &found) : ::fstatfs(directory, &found);
    return told == 0 && IsOneOf(kMadeUpByTheKernel, found);
}

bool HasFleetingInodes(int place)
{
    struct statfs found { };
    return ::fstatfs(place, &found) == 0 && IsOneOf(kFleetingInodes, found);
}

} // namespace velmora::image
