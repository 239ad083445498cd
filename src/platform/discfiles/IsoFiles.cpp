// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "discfiles/FileSystemReaders.h"

#include <array>
#include <cstdlib>
#include <memory>

// Its header relies on its users to include the integer types.
#include <libisofs/libisofs.h>

namespace velmora::discfiles {

namespace {

int Nothing(IsoDataSource*) { return ISO_SUCCESS; }

int ReadBlock(IsoDataSource* source, std::uint32_t sector, std::uint8_t* out)
{
    const auto& read = *static_cast<const ReadSectors*>(source->data);
    const std::span bytes(reinterpret_cast<std::byte*>(out), kSectorBytes);
    return read(sector, bytes) ? ISO_SUCCESS : static_cast<int>(ISO_FILE_READ_ERROR);
}

/// The library, initialised for this object's lifetime.
class Library {
public:
    Library()
        : isReady_(iso_init() >= 0)
    {
        if (isReady_) {
            iso_set_msgs_severities(
                const_cast<char*>("NEVER"), const_cast<char*>("NEVER"), const_cast<char*>(""));
            iso_set_local_charset(const_cast<char*>("UTF-8"), 0);
        }
    }
    ~Library()
    {
        if (isReady_) {
            iso_finish();
        }
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    Library(Library&&) = delete;
    Library& operator=(Library&&) = delete;

    bool IsReady() const { return isReady_; }

private:
    bool isReady_;
};

struct Release {
    void operator()(IsoImage* image) const { iso_image_unref(image); }
    void operator()(IsoReadOpts* options) const { iso_read_opts_free(options); }
    void operator()(IsoDirIter* entries) const { iso_dir_iter_free(entries); }
    void operator()(iso_file_section* sections) const { std::free(sections); }
    void operator()(IsoReadImageFeatures* features) const
    {
        iso_read_image_features_destroy(features);
    }
};
template <class Type> using Held = std::unique_ptr<Type, Release>;

std::vector<Extent> ExtentsOf(IsoFile* file)
{
    int count = 0;
    iso_file_section* sections = nullptr;
    const int isKnown = iso_file_get_old_image_sections(file, &count, &sections, 0);
    const Held<iso_file_section> held(sections);
    std::vector<Extent> extents;
    if (isKnown == 1 && sections) {
        for (const iso_file_section& section :
            std::span(sections, static_cast<std::size_t>(count))) {
            if (section.size > 0) {
                extents.push_back({section.block, section.size});
            }
        }
    }
    return extents;
}

void ListFolder(IsoDir* folder, const std::string& path, Listing& listing)
{
    IsoDirIter* opened = nullptr;
    if (iso_dir_get_children(folder, &opened) < 0) {
        return;
    }
    const Held<IsoDirIter> entries(opened);
    IsoNode* node = nullptr;
    while (iso_dir_iter_next(entries.get(), &node) == 1) {
        const std::string inside = path + iso_node_get_name(node);
        if (ISO_NODE_IS_DIR(node)) {
            ListFolder(reinterpret_cast<IsoDir*>(node), inside + '/', listing);
        } else if (ISO_NODE_IS_FILE(node)) {
            auto* file = reinterpret_cast<IsoFile*>(node);
            listing.files.push_back(
                {inside, static_cast<std::uint64_t>(iso_file_get_size(file)), ExtentsOf(file)});
        }
    }
}

} // namespace

std::optional<Listing> ListIso(const ReadSectors& read, std::uint32_t session)
{
    const Library library;
    IsoImage* image = nullptr;
    IsoReadOpts* options = nullptr;
    if (!library.IsReady() || iso_image_new("", &image) < 0 || iso_read_opts_new(&options, 0) < 0) {
        return std::nullopt;
    }
    const Held<IsoImage> heldImage(image);
    const Held<IsoReadOpts> heldOptions(options);
    iso_read_opts_set_start_block(options, session);
    iso_read_opts_set_input_charset(options, "UTF-8");
    iso_read_opts_load_system_area(options, 0);
    ReadSectors reader = read;
    IsoDataSource source {};
    source.refcount = 2; // one reference is ours: the library doesn't free it
    source.open = Nothing;
    source.close = Nothing;
    source.read_block = ReadBlock;
    source.free_data = [](IsoDataSource*) {};
    source.data = &reader;
    IsoReadImageFeatures* features = nullptr; // libisofs 1.5.6 reads into them unasked
    const int isImported = iso_image_import(image, &source, options, &features);
    const Held<IsoReadImageFeatures> heldFeatures(features);
    if (isImported < 0) {
        return std::nullopt;
    }
    const char* name = iso_image_get_volume_id(image);
    Listing listing {.volume = name ? name : "", .files = {}};
    ListFolder(iso_image_get_root(image), {}, listing);
    return listing;
}

} // namespace velmora::discfiles
