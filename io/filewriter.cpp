#include "io/filewriter.h"

#include "qx/ioerror.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace QX {

void writeFile(std::string const& path, std::function<void(std::ostream&)> const& write) {
    errno = 0;
    auto const fail = [&] {
        throw IoError(path, 0, 0, errno == 0 ? "the file can't be written" : std::strerror(errno));
    };
    std::ofstream out(std::filesystem::path(std::u8string(path.begin(), path.end())),
                      std::ios::binary | std::ios::trunc);
    if (!out) {
        fail();
    }
    write(out);
    out.close();
    if (!out) {
        fail();
    }
}

} // namespace QX
