#include "reader.h"

#include "csvparser.h"
#include "failure.h"
#include "system.h"
#include "tablebuilder.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

namespace qxtab {

namespace {

std::size_t const pieceSize = 1 << 20;

struct CloseFile {
    void operator()(std::FILE* file) const {
        if (file != stdin) {
            std::fclose(file);
        }
    }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

[[noreturn]] void failForSystem(std::string const& file) {
    throw Failure(messageName(file) + ": " + std::strerror(errno));
}

File open(std::string const& file) {
    File opened(file == "-" ? stdin : openFile(file));
    if (!opened) {
        failForSystem(file);
    }
    return opened;
}

char delimiterOf(std::string const& file, std::string const& delimiter) {
    if (!delimiter.empty()) {
        return delimiter.front();
    }
    std::filesystem::path const ending = pathOf(file).extension();
    return ending == ".tsv" || ending == ".tab" ? '\t' : ',';
}

QX::Ptr<QX::Table> emptyTable(std::string const& file) {
    std::string const name = file == "-" ? messageName(file) : nameOf(pathOf(file).stem());
    return QX::Ptr<QX::Table>(new QX::Table(QX::Str(name)));
}

std::string_view withoutMark(std::string_view text, std::string const& file) {
    if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF")) {
        throw Failure(messageName(file) + ":1: the text is UTF-16; convert it to UTF-8 first");
    }
    return text.substr(text.starts_with("\xEF\xBB\xBF") ? 3 : 0);
}

} // namespace

std::string messageName(std::string const& file) {
    return file == "-" ? "standard input" : file;
}

QX::Ptr<QX::Table> readTable(std::string const& file, std::string const& delimiter) {
    File const input = open(file);
    QX::Ptr<QX::Table> const table = emptyTable(file);
    TableBuilder builder(messageName(file), table);
    CsvParser parser(messageName(file), delimiterOf(file, delimiter), builder);
    std::vector<char> piece(pieceSize);
    bool first = true;
    std::size_t size = 0;
    while ((size = std::fread(piece.data(), 1, piece.size(), input.get())) != 0) {
        std::string_view const read(piece.data(), size);
        std::string_view const text = first ? withoutMark(read, file) : read;
        parser.parse(text.data(), text.size());
        first = false;
    }
    if (std::ferror(input.get()) != 0) {
        failForSystem(file);
    }
    parser.finish();
    builder.finish();
    return table;
}

} // namespace qxtab
