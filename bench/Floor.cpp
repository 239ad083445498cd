// SPDX-FileCopyrightText: The Velmora developers
// SPDX-License-Identifier: GPL-3.0-or-later

// bench-floor TREE PLACES IMAGE [PIECE_KIB [THREADS]] - writes a file of an image's size that has
// every file's bytes at their place in the image, and one constant byte everywhere else. Nothing is
// scanned, named, laid out or rendered: this is what reading the files once and writing one file
// costs, and no image writer that copies the bytes through memory can be quicker.
//
// PLACES comes from bench-places.
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::uint64_t kPieceKib
    = 512; // larger ones cost more where memory is short of large free blocks
constexpr std::size_t kPage = 4096; // bytes
constexpr unsigned kThreads = 2;
constexpr int kConstantByte = 0x20;

struct Place {
    std::uint64_t begin = 0; ///< bytes from the image's start
    std::uint64_t length = 0;
    const char* path = nullptr; ///< relative to the tree
};

struct Places {
    std::string text; ///< holds the paths
    std::uint64_t imageBytes = 0;
    std::vector<Place> files {}; ///< in the order of the image, none is empty
};

[[noreturn]] void Die(const char* what)
{
    std::fprintf(stderr, "bench-floor: %s: %s\n", what, std::strerror(errno));
    std::_Exit(1);
}

/// "IMAGE_BYTES\0" and then, for each file, "BEGIN LENGTH PATH\0".
Places ReadPlaces(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        Die(path);
    }
    Places places {.text = {std::istreambuf_iterator<char>(file), {}}};
    const char* at = places.text.data();
    const char* end = at + places.text.size();
    places.imageBytes = std::strtoull(at, nullptr, 10);
    for (at += std::strlen(at) + 1; at < end; at += std::strlen(at) + 1) {
        Place place {};
        char* next = nullptr;
        place.begin = std::strtoull(at, &next, 10);
        place.length = std::strtoull(next, &next, 10);
        place.path = next + 1;
        places.files.push_back(place);
    }
    return places;
}

class Floor {
public:
    Floor(const Places& places, int tree, int image, std::uint64_t pieceBytes)
        : places_(places)
        , tree_(tree)
        , image_(image)
        , pieceBytes_(pieceBytes)
    {
    }

    /// Takes pieces of the image until none is left.
    void Work()
    {
        // Aligned to a page: processors copy fastest to there.
        const std::unique_ptr<void, decltype(&std::free)> buffer(
            std::aligned_alloc(kPage, pieceBytes_), &std::free);
        char* const bytes = static_cast<char*>(buffer.get());
        while (true) {
            const std::uint64_t begin = nextPiece_.fetch_add(pieceBytes_);
            if (begin >= places_.imageBytes) {
                return;
            }
            const std::uint64_t end = std::min(begin + pieceBytes_, places_.imageBytes);
            Fill(begin, end, bytes);
            Write(begin, end, bytes);
        }
    }

private:
    void Fill(std::uint64_t begin, std::uint64_t end, char* buffer) const
    {
        auto file = std::partition_point(places_.files.begin(),
            places_.files.end(),
            [begin](const Place& place) { return place.begin + place.length <= begin; });
        std::uint64_t at = begin;
        for (; file != places_.files.end() && file->begin < end; ++file) {
            const std::uint64_t from = std::max(file->begin, begin);
            const std::uint64_t to = std::min(file->begin + file->length, end);
            std::memset(buffer + (at - begin), kConstantByte, from - at);
            Read(*file, from, to, buffer + (from - begin));
            at = to;
        }
        std::memset(buffer + (at - begin), kConstantByte, end - at);
    }

    void Read(const Place& place, std::uint64_t from, std::uint64_t to, char* out) const
    {
        const int file = openat(tree_, place.path, O_RDONLY | O_CLOEXEC);
        if (file < 0) {
            Die(place.path);
        }
        while (from < to) {
            const ssize_t got = pread(file, out, to - from, static_cast<off_t>(from - place.begin));
            if (got <= 0) {
                Die(place.path);
            }
            from += static_cast<std::uint64_t>(got);
            out += got;
        }
        close(file);
    }

    void Write(std::uint64_t begin, std::uint64_t end, const char* bytes) const
    {
        while (begin < end) {
            const ssize_t put = pwrite(image_, bytes, end - begin, static_cast<off_t>(begin));
            if (put <= 0) {
                Die("image");
            }
            begin += static_cast<std::uint64_t>(put);
            bytes += put;
        }
    }

    const Places& places_;
    int tree_;
    int image_;
    std::uint64_t pieceBytes_;
    std::atomic<std::uint64_t> nextPiece_ = 0;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc < 4) {
        std::fputs("usage: bench-floor TREE PLACES IMAGE [PIECE_KIB [THREADS]]\n", stderr);
        return 2;
    }
    const std::uint64_t pieceKib = argc > 4 ? std::strtoull(argv[4], nullptr, 10) : kPieceKib;
    const std::uint64_t threads = argc > 5 ? std::strtoull(argv[5], nullptr, 10) : kThreads;

    const int tree = open(argv[1], O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (tree < 0) {
        Die(argv[1]);
    }
    const Places places = ReadPlaces(argv[2]);
    const int image = open(argv[3], O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (image < 0 || ftruncate(image, static_cast<off_t>(places.imageBytes)) != 0) {
        Die(argv[3]);
    }

    Floor floor(places, tree, image, pieceKib * 1024);
    std::vector<std::jthread> others;
    for (std::uint64_t thread = 1; thread < threads; ++thread) {
        others.emplace_back([&floor] { floor.Work(); });
    }
    floor.Work();
    others.clear(); // joins
    if (close(image) != 0) {
        Die(argv[3]);
    }
    return 0;
}
