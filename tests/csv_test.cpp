#include "iosupport.h"

#include <qx/csv.h>

#include <filesystem>
#include <fstream>
#include <sstream>

namespace QX {
namespace {

using Change = void (*)(CsvReadOptions& options);

CsvReadOptions changed(Change change) {
    CsvReadOptions options;
    change(options);
    return options;
}

struct Survivor {
    char const* about;
    std::string text;
};

// What is read and written again has the same bytes: each of these files is as writeCsv() writes one.
Survivor const survivors[] = {
    {"numbers",
     "n\n1\n-2\n0\n-0\n12.5\n0.000001\n123456789012345\n1e+15\n1.5e-07\n0.30000000000000004\n"},
    {"zeros in front", "zip\n00501\n10115\n"},
    {"exponents", "code\n0E0\n0E8\n1E5\n7\n"},
    {"a plus", "phone\n+49301234567\n1\n"},
    {"a minus and zeros", "n\n-007\n1\n"},
    {"19 digits", "id\n1234567890123456789\n1234567890123456788\n"},
    {"16 digits", "id\n1000000000000000\n1\n"},
    {"zeros behind", "price\n3.10\n4.25\n2\n"},
    {"points without digits", "n\n.5\n5.\n-\n"},
    {"forms of the library's own", "a,b\n[Empty],## 1 2\n[Numeric] 1 4,#Err: no\n"},
    {"a text late", "n\n1\n2.5\n-0\n1e+300\nx\n3\n"},
    {"dates", "d\n2026-11-22\n2026-02-30\n"},
    {"a date late", "n\n1\n2026-11-22\n"},
    {"a number late", "d\n2026-11-22\n1\n"},
    {"names", "007,2024,[Empty],1e5,a,a,\n1,2,3,4,5,6,7\n"},
    {"empty cells and empty texts", "a,b\n,\"\"\n\"\",\nx,y\n"},
    {"quotes", "a,b\n\"x,y\",\"say \"\"no\"\"\"\n\"l1\nl2\",\"\r\"\n"},
    {"a quote inside", "a\n\"5\"\" wide\"\n"},
    {"blanks", "a\n\" x\"\n\"y \"\n\"\t\"\n"},
    {"zero bytes", std::string("a,b\nx\0y,\0\n", 10)},
    {"bytes that are no UTF-8", "a\n\xFF\xFE\n\xC3\n"},
    {"a mark that is data", "\"\xEF\xBB\xBFname\"\n1\n"},
    {"one column with gaps", "a\n\n1\n\n\n2\n"},
    {"one column without name", "\"\"\n1\n"},
    {"nothing but names", "a,b\n"},
    {"long fields", "a\n" + std::string(700'000, 'x') + "\n\"" + std::string(600'000, ',') + "\"\n"},
};

TEST(Csv, WritesEveryFieldAsItWasRead) {
    for (Survivor const& row : survivors) {
        SCOPED_TRACE(row.about);
        EXPECT_EQ(writeCsvText(*readCsvText(row.text)), row.text);
        CsvReadOptions drop;
        drop.dropZeros = true; // the column of a text goes back to what it was, zeros included
        EXPECT_EQ(writeCsvText(*readCsvText(
                      row.text + (row.text.find("3.10") == std::string::npos ? "" : "x\n"), drop)),
                  row.text + (row.text.find("3.10") == std::string::npos ? "" : "x\n"));
    }
}

TEST(Csv, ReadsTheSameInPiecesOfAnySize) {
    for (Survivor const& row : survivors) {
        SCOPED_TRACE(row.about);
        for (std::size_t const piece : {1U, 2U, 3U, 7U, 100'000U}) {
            if (row.text.size() / piece < 10'000) {
                EXPECT_EQ(image(*readCsv(piecesOf(row.text, piece))), image(*readCsvText(row.text)));
            }
        }
    }
}

struct Reading {
    char const* about;
    char const* text;
    Change change;
    char const* grid;
};

Reading const readings[] = {
    {"kinds", "a,b,c,d\n1,x,,\"\"\n2.5,2,,\n", [](CsvReadOptions&) {},
     "'a'|'b'|'c'|'d'\n1|'x'|-|''\n2.5|'2'|-|-\n"},
    {"line ends, no end at the end", "a,b\r\n1,2\r3,4\n5,6", [](CsvReadOptions&) {},
     "'a'|'b'\n1|2\n3|4\n5|6\n"},
    {"mark", "\xEF\xBB\xBF\"a\"\n1\n", [](CsvReadOptions&) {}, "'a'\n1\n"},
    {"a quote in a field", "a\nx\"y\"\n", [](CsvReadOptions&) {}, "'a'\n'x\"y\"'\n"},
    {"blank lines", "\n\na,b\n\n1,2\n\n", [](CsvReadOptions&) {}, "'a'|'b'\n1|2\n"},
    {"a separator at the end", "a,b\n1,", [](CsvReadOptions&) {}, "'a'|'b'\n1|-\n"},
    {"short rows", "a,b\n1\n2,3\n", [](CsvReadOptions&) {}, "'a'|'b'\n1|-\n2|3\n"},
    {"other characters", "a;b\n'x;''y';2\n",
     [](CsvReadOptions& o) {
         o.separator = ';';
         o.quote = '\'';
     },
     "'a'|'b'\n'x;'y'|2\n"},
    {"no quotes", "a,b\n\"x,y\"\n", [](CsvReadOptions& o) { o.quote = '\0'; }, "'a'|'b'\n'\"x'|'y\"'\n"},
    {"no header", "1,2\n3,4\n", [](CsvReadOptions& o) { o.header = false; },
     "'column 1'|'column 2'\n1|2\n3|4\n"},
    {"no header, one column", "\n1\n\n", [](CsvReadOptions& o) { o.header = false; },
     "'column 1'\n-\n1\n-\n"},
    {"no header, nothing", "", [](CsvReadOptions& o) { o.header = false; }, ""},
    {"trim", " a ,\t\"b \" \n 1\t, x y \n", [](CsvReadOptions& o) { o.trim = true; },
     "'a'|'b '\n1|'x y'\n"},
    {"texts", "a\n1\n\n", [](CsvReadOptions& o) { o.type = CsvType::Text; }, "'a'\n'1'\n-\n"},
    {"numbers", "a\n007\n+5\n1.50\n 2\n1e3\nnan\nx\n## 1 2\n",
     [](CsvReadOptions& o) { o.types["a"] = CsvType::Number; },
     "'a'\n7\n5\n1.5\n2\n1000\nnan\n'x'\n'## 1 2'\n"},
    {"dates", "a\n22.11.2026\n2026-11-22\n",
     [](CsvReadOptions& o) {
         o.types["a"] = CsvType::Date;
         o.dateFormat = "dd.mm.yyyy";
     },
     "'a'\n'2026-11-22'\n'2026-11-22'\n"},
    {"zeros dropped", "a,b\n1.50,1.50\n2.00,x\n", [](CsvReadOptions& o) { o.dropZeros = true; },
     "'a'|'b'\n1.5|'1.50'\n2|'x'\n"},
    {"what is empty", "a,b\nNA,\"NA\"\n,-\n",
     [](CsvReadOptions& o) {
         o.empty = {"NA", "-"};
     },
     "'a'|'b'\n-|'NA'\n''|-\n"},
    {"long rows", "a,column 3\n1\n2,3,4\n5,6,7,8\n",
     [](CsvReadOptions& o) { o.ragged = CsvRagged::Keep; },
     "'a'|'column 3'|'column 3+'|'column 4'\n1|-|-|-\n2|3|4|-\n5|6|7|8\n"},
    {"limit", "a\n1\n2\n3\n", [](CsvReadOptions& o) { o.rows = 2; }, "'a'\n1\n2\n"},
    {"limit of none", "a\n1\n", [](CsvReadOptions& o) { o.rows = 0; }, "'a'\n"},
};

TEST(Csv, ReadsAsTheOptionsSay) {
    for (Reading const& row : readings) {
        SCOPED_TRACE(row.about);
        CsvReadOptions const options = changed(row.change);
        EXPECT_EQ(grid(*readCsvText(row.text, options)), row.grid);
        EXPECT_EQ(grid(*readCsv(piecesOf(row.text, 1), options)), row.grid);
        std::istringstream stream(row.text);
        EXPECT_EQ(grid(*readCsv(stream, options)), row.grid);
    }
}

struct Refusal {
    std::string text;
    Change change;
    char const* message;
};

Refusal const refusals[] = {
    {"a\n\"x\"y\n", [](CsvReadOptions&) {},
     "f:2:4: text follows the closing quote of a field (inside it, a quote is written twice)"},
    {"a,b\n1,\"l1\nl2\"x\n", [](CsvReadOptions&) {},
     "f:3:4: text follows the closing quote of a field (inside it, a quote is written twice)"},
    {"a,b\r\n1,\"x\ny\n", [](CsvReadOptions&) {},
     "f:2:3: the quoted field that begins here has no closing quote"},
    {"a,b\n1,2,3\n", [](CsvReadOptions&) {}, "f:2:5: the row has more than the 2 fields of the header"},
    {"a,b\n1\n", [](CsvReadOptions& o) { o.ragged = CsvRagged::Raise; },
     "f:2: the row has 1 field where the header has 2"},
    {"", [](CsvReadOptions&) {}, "f:1: there is no header row, the input is empty"},
    {"\n\r\n", [](CsvReadOptions&) {}, "f:3: there is no header row, the input is empty"},
    {std::string("\xFF\xFE"
                 "a\0",
                 4),
     [](CsvReadOptions&) {}, "f:1: the text is UTF-16; convert it to UTF-8 first"},
    {"\x1F\x8B\x08", [](CsvReadOptions&) {}, "f: this is not text but gzip data"},
    {"a,b\n1,2\nx,3\n",
     [](CsvReadOptions& o) {
         o.type = CsvType::Number;
         o.strict = true;
     },
     "f:3:1: \"x\" in the column \"a\" is no number"},
    {"a,b\n1,x\n",
     [](CsvReadOptions& o) {
         o.types["b"] = CsvType::Date;
         o.strict = true;
     },
     "f:2:3: \"x\" in the column \"b\" is no date"},
    {"a\n1\n", [](CsvReadOptions& o) { o.types["b"] = CsvType::Text; }, "f: there is no column \"b\""},
    {"a\n", [](CsvReadOptions& o) { o.separator = '"'; },
     "f: separator and quote must be two characters other than line ends"},
};

TEST(Csv, RefusesWithThePlace) {
    for (Refusal const& row : refusals) {
        SCOPED_TRACE(row.message);
        CsvReadOptions options = changed(row.change);
        options.name = "f";
        EXPECT_EQ(ioError([&] { readCsvText(row.text, options); }), row.message);
        EXPECT_EQ(ioError([&] { readCsv(piecesOf(row.text, 1), options); }), row.message);
    }
}

TEST(Csv, TellsWhatItMet) {
    CsvReport report;
    CsvReadOptions keep;
    keep.ragged = CsvRagged::Keep;
    readCsvText("\xEF\xBB\xBF"
                "zip,n,d,n\n00501,1,2026-11-22,\n\n10115,2\n,x,2026-11-23,,9\n",
                keep, &report);
    EXPECT_TRUE(report.byteOrderMark);
    EXPECT_TRUE(report.complete);
    EXPECT_EQ(report.rows, 3U);
    EXPECT_EQ(report.shortRows, 1U);
    EXPECT_EQ(report.firstShortLine, 4U);
    EXPECT_EQ(report.longRows, 1U);
    EXPECT_EQ(report.firstLongLine, 5U);
    EXPECT_EQ(report.blankLines, 1U);
    EXPECT_EQ(report.equalNames, 1U);
    std::string counts;
    for (CsvColumn const& column : report.columns) {
        std::ostringstream line;
        line << column.name << ' ' << static_cast<int>(column.type) << ' ' << column.empty << ' '
             << column.numbers << ' ' << column.altered << ' ' << column.dates << ' ' << column.texts
             << ' ' << column.oddLine << column.oddText << '\n';
        counts += line.str();
    }
    EXPECT_EQ(counts, "zip 1 1 1 1 0 0 200501\nn 1 0 2 0 0 1 0\nd 3 1 0 0 2 0 0\nn 1 3 0 0 0 0 0\n"
                      "column 5 2 2 1 0 0 0 0\n");
}

TEST(Csv, AsksForNothingBehindTheLastRow) {
    std::string text = "a\n1\n2\n";
    CsvReadOptions options;
    options.rows = 2;
    CsvReport report;
    bool given = false;
    Ptr<Table> const table = readCsv(
        [&](char* buffer, std::size_t size) {
            EXPECT_FALSE(given);
            given = true;
            return text.copy(buffer, size);
        },
        options, &report);
    EXPECT_EQ(grid(*table), "'a'\n1\n2\n");
    EXPECT_FALSE(report.complete);
}

TEST(Csv, BoundsWhatRowsOfDifferentLengthsTake) {
    CsvReadOptions keep;
    keep.ragged = CsvRagged::Keep;
    std::string triangle = "a\n";
    std::string shorts = std::string(30'000, ',') + "\n";
    for (int n = 0; n < 3000; ++n) {
        triangle += "1\n";
        shorts += "1\n";
    }
    triangle += std::string(30'000, ',') + "\n";
    std::string const message =
        "the rows differ so much in length that most of the table would be empty";
    EXPECT_NE(ioError([&] { readCsvText(triangle, keep); }).find(message), std::string::npos);
    EXPECT_NE(ioError([&] { readCsvText(shorts); }).find(message), std::string::npos);
    keep.padding = Table::npos;
    EXPECT_EQ(readCsvText(shorts.substr(0, 30'201), keep)->indices(), 30'001U);
}

TEST(Csv, ReadsManyColumns) {
    std::string text;
    for (int n = 0; n < 3; ++n) {
        for (int i = 0; i < 50'000; ++i) {
            text += (i == 0 ? "" : ",") + std::to_string(n == 0 ? i : i * n);
        }
        text += "\n";
    }
    EXPECT_EQ(writeCsvText(*readCsvText(text)), text);
}

TEST(Csv, FindsIndicesByTheNamesOfTheHeader) {
    Ptr<Table> const table = readCsvText("2024,name,1.5,\n1,x,2,3\n");
    Table const& found = *table;
    EXPECT_EQ(text(found.at(Str("2024"), 1)), "1");
    EXPECT_EQ(text(found.at(Str("1.5"), 1)), "2");
    EXPECT_EQ(text(found.at(Str(""), 1)), "3");
}

// Columns of texts and of numbers come back as what they were, with any separator, quote and line end.
TEST(Csv, ReadsGeneratedTablesBack) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        HardCells hard(seed);
        CsvReadOptions reading;
        CsvWriteOptions writing;
        reading.separator = writing.separator = ",;\t 1"[hard.below(5)];
        reading.quote = writing.quote = "\"'x"[hard.below(3)];
        writing.lineEnd = hard.below(2) == 0 ? "\n" : "\r\n";
        writing.quoteAll = hard.below(4) == 0;
        Table table;
        std::size_t const rows = hard.below(6) + 1;
        for (std::size_t i = 0; i <= hard.below(4); ++i) {
            std::string const name = "n" + std::to_string(i) + hard.text();
            bool const texts = hard.below(2) == 0;
            reading.types[name] = texts ? CsvType::Text : CsvType::Guess;
            table.at(i, 0) = textCell(name);
            for (std::size_t j = 1; j <= rows; ++j) {
                table.at(i, j) = hard.below(5) == 0 ? Cell()
                                 : texts            ? textCell(hard.text())
                                                    : Cell(hard.number());
            }
        }
        std::string const written = writeCsvText(table, writing);
        SCOPED_TRACE(written);
        EXPECT_EQ(image(*readCsvText(written, reading)), image(table));
    }
}

TEST(Csv, WritesWhatIsNoTextAndNoNumber) {
    Table table("t");
    table.at(0, 0) = Str("a");
    table.at(0, 1) = Cell(Status("broken, it is", Status::Error, -1));
    table.at(0, 2) = undefined(3);
    table.at(0, 3) = -HUGE_VAL;
    table.at(0, 4) = Cell(Ptr<Table>(new Table("in")));
    table.at(1, 5) = textCell("NA");
    CsvWriteOptions options;
    options.empty = "NA";
    EXPECT_EQ(writeCsvText(table, options),
              "a,NA\n\"#Err: broken, it is\",NA\nNA,NA\n-inf,NA\n\"Table - in\n\",NA\nNA,\"NA\"\n");
    options.rows = 1;
    options.header = false;
    EXPECT_EQ(writeCsvText(table, options), "\"#Err: broken, it is\",NA\n");
    options.quote = '\0';
    EXPECT_EQ(ioError([&] { writeCsvText(table, options); }),
              "a field that needs quotes can't be written without them");
    std::ostream refusing(nullptr);
    EXPECT_EQ(ioError([&] { writeCsv(refusing, table); }), "the output takes no more");
}

TEST(Csv, ReadsAndWritesFiles) {
    std::filesystem::path const directory = std::filesystem::temp_directory_path() / "qx_io_\xC3\xA4";
    std::filesystem::create_directories(
        std::filesystem::path(std::u8string(u8"") + directory.u8string()));
    std::u8string const u8 = (directory / "prices.csv").u8string();
    std::string const path(u8.begin(), u8.end());
    std::uint64_t told = 0;
    CsvReadOptions options;
    options.progress = [&](std::uint64_t bytes, std::uint64_t) { told = bytes; };
    writeCsvFile(path, *readCsvText("a,b\n1,x\n"));
    Ptr<Table> const table = readCsvFile(path, options);
    EXPECT_EQ(string(table->name()), "prices");
    EXPECT_EQ(grid(*table), "'a'|'b'\n1|'x'\n");
    EXPECT_EQ(told, 8U);
    options.progress = [](std::uint64_t, std::uint64_t) { throw std::string("enough"); };
    EXPECT_THROW(readCsvFile(path, options), std::string);
    std::filesystem::remove_all(directory);
    EXPECT_NE(ioError([&] { readCsvFile(path); }).find("prices.csv: "), std::string::npos);
    EXPECT_NE(ioError([&] { writeCsvFile(path, *table); }).find("prices.csv: "), std::string::npos);
    EXPECT_NE(ioError([&] { readCsvFile("."); }).find(".: "), std::string::npos);
}

} // namespace
} // namespace QX
