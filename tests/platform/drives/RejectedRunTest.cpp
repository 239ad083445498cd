// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "drives/GrabbedDrive.h"
#include "tests/platform/drives/DriveBench.h"

#include <libburn/libburn.h>

#include <array>
#include <fcntl.h>
#include <unistd.h>

namespace velmora::test {

/// Runs that the library rejects by itself: releasing the drive afterwards isn't enough to get it
/// back. None of ours is rejected, as each is checked before, so this one is started directly.
class RejectedRunTest : public DriveBench {
protected:
    /// A session that is to stay open, on a disc that takes one closed session only.
    void AskForWhatTheDiscCannotTake()
    {
        const drives::GrabbedDrive grabbed(u"/dev/sr0"_s, context.patience);
        burn::burn_disc* disc = burn::burn_disc_create();
        burn::burn_session* session = burn::burn_session_create();
        burn::burn_track* track = burn::burn_track_create();
        burn::burn_track_define_data(track, 0, 0, 1, BURN_MODE1);
        burn::burn_source* source = burn::burn_fd_source_new(
            open("/dev/zero", O_RDONLY | O_CLOEXEC), -1, off_t {1000} * 2048);
        burn::burn_track_set_source(track, source);
        burn::burn_session_add_track(session, track, BURN_POS_END);
        burn::burn_disc_add_session(disc, session, BURN_POS_END);
        burn::burn_write_opts* options = burn::burn_write_opts_new(grabbed.Handle());
        burn::burn_write_opts_set_write_type(options, burn::BURN_WRITE_SAO, burn::BURN_BLOCK_SAO);
        burn::burn_write_opts_set_multi(options, 1);

        std::array<char, BURN_REASONS_LEN> reasons {};
        accepted = burn::burn_precheck_write(options, disc, reasons.data(), 0) == 1;
        burn::burn_disc_write(options, disc);
        while (burn::burn_drive_get_status(grabbed.Handle(), nullptr) != burn::BURN_DRIVE_IDLE) {
            usleep(1000); // the library reports no end by itself
        }

        burn::burn_write_opts_free(options);
        burn::burn_source_free(source);
        burn::burn_track_free(track);
        burn::burn_session_free(session);
        burn::burn_disc_free(disc);
    }

    bool accepted = true;
};

TEST_F(RejectedRunTest, TheDriveIsTakenAnewAndWritesTheNextDisc)
{
    constexpr qint64 kSectors = 1000;
    Insert(0x15);
    drives::LibraryThread library;
    library.Run(pump, [this] { AskForWhatTheDiscCannotTake(); });
    ASSERT_FALSE(accepted);
    ASSERT_TRUE(Disc().Blank());

    Write(OrderOf(kSectors));

    EXPECT_EQ(emulated.Sectors(0, kSectors), SectorsOf(kSectors, 1));
}

} // namespace velmora::test
