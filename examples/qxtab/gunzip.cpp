#include "gunzip.h"

#include "failure.h"

#ifdef QXTAB_ZLIB

#include <algorithm>
#include <limits>
#include <memory>
#include <new>
#include <utility>
#include <vector>
#include <zlib.h>

namespace qxtab {

namespace {

class Unpacker {
public:
    Unpacker(std::string name, QX::ByteSource source)
        : name_(std::move(name)), source_(std::move(source)), packed_(pieceSize) {
        int const gzipOnly = 16 + MAX_WBITS;
        if (inflateInit2(&stream_, gzipOnly) != Z_OK) {
            throw std::bad_alloc();
        }
    }
    Unpacker(Unpacker const&) = delete;
    Unpacker& operator=(Unpacker const&) = delete;
    ~Unpacker() { inflateEnd(&stream_); }

    std::size_t read(char* buffer, std::size_t size) {
        auto const space =
            static_cast<uInt>(std::min<std::size_t>(size, std::numeric_limits<uInt>::max()));
        stream_.next_out = reinterpret_cast<Bytef*>(buffer);
        stream_.avail_out = space;
        while (stream_.avail_out == space && !ended_) {
            step();
        }
        return space - stream_.avail_out;
    }

private:
    static constexpr std::size_t pieceSize = 1 << 16;

    void step() {
        if (stream_.avail_in == 0) {
            stream_.next_in = reinterpret_cast<Bytef*>(packed_.data());
            stream_.avail_in = static_cast<uInt>(source_(packed_.data(), packed_.size()));
            if (stream_.avail_in == 0) {
                if (within_) {
                    throw Failure(name_ + ": the packed data end in the middle");
                }
                ended_ = true;
                return;
            }
        }
        within_ = true;
        int const result = inflate(&stream_, Z_NO_FLUSH);
        if (result == Z_STREAM_END) {
            within_ = false;
            inflateReset(&stream_);
        } else if (result != Z_OK && result != Z_BUF_ERROR) {
            throw Failure(name_ + ": the packed data are damaged");
        }
    }

    std::string name_;
    QX::ByteSource source_;
    std::vector<char> packed_;
    z_stream stream_{};
    bool within_ = false; // a member
    bool ended_ = false;
};

} // namespace

QX::ByteSource gunzip(std::string const& name, QX::ByteSource const& packed) {
    auto const unpacker = std::make_shared<Unpacker>(name, packed);
    return [unpacker](char* buffer, std::size_t size) { return unpacker->read(buffer, size); };
}

} // namespace qxtab

#else

namespace qxtab {

QX::ByteSource gunzip(std::string const& name, QX::ByteSource const&) {
    throw Failure(name + " is packed by gzip, which this build of qxtab can't unpack: unpack it first");
}

} // namespace qxtab

#endif
