#include "iosupport.h"

#include <qx/json.h>

#include <sstream>

namespace QX {
namespace {

JsonWriteOptions laidOut(JsonLayout layout) {
    JsonWriteOptions options;
    options.layout = layout;
    return options;
}

/// A table as JSON on one line.
std::string compact(Table const& table) {
    std::string written = writeJsonText(table, laidOut(JsonLayout::Compact));
    EXPECT_EQ(written.back(), '\n');
    written.pop_back();
    return written;
}

// Each of these is as writeJson() writes it.
char const* const survivors[] = {
    "{}",
    "[]",
    "null",
    "true",
    "0",
    "-0",
    "\"\"",
    "[[]]",
    "[{}]",
    "[{},{}]",
    "{\"\":{}}",
    "[null]",
    "[1.5e+300,5e-324,0.1,0.000001,1e-07,9007199254740992,1e+16]",
    "[1,2.5,\"x\",null,true,false,[],{}]",
    "{\"a\":1,\"b\":[1,2]}",
    "[{\"a\":1,\"b\":2},{\"a\":3},{\"b\":null},{}]",
    "[{\"a\":1},2]",
    "[1,{\"a\":1}]",
    "[{\"a\":{\"b\":[{\"c\":1}]}},{\"a\":[]}]",
    "{\"a\":1,\"a\":2}",
    "[{\"a\":1,\"a\":2},{\"a\":3}]",
    "[{\"x\":1},{\"x\":2},{\"y\":3,\"y\":4}]",
    "[{\"x\":\"TRUE\"},{\"x\":2,\"y\":true},{\"y\":\"FALSE\",\"y\":4}]",
    "[\"TRUE\",true,\"FALSE\",false,\"true\"]",
    "{\"a\":\"TRUE\",\"b\":true}",
    "[{\"a\":true},{\"a\":\"TRUE\"}]",
    "[{\"a\":\"TRUE\"},{\"b\":\"TRUE\"},3]",
    "\"TRUE\"",
    "12345678901234567890",
    "[9007199254740993,-90071992547409930]",
    "{\"007\":1,\"2024\":2,\"[Empty]\":3,\"#Err: x\":4,\"1e5\":5}",
    "[\"00501\",\"## 1 2\",\"[Empty]\",\"1\",\"nan\"]",
    "[{\"\":1},{\"\":2}]",
    "\"\\\"\\\\\\b\\f\\n\\r\\t\\u0000\\u001f\x7F/\xC3\xA9\xF0\x9F\x98\x80\"",
    "{\"$table\":\"x\",\"$error\":\"y\"}",
    "[[[[1]]]]",
    "[{\"a\":1},{\"a\":2,\"b\":{\"c\":[{},{\"d\":1}]}}]",
    "[{\"a\":1},{\"b\":1},{\"c\":1},{\"d\":1},{\"e\":1},{\"f\":1},{\"g\":1},{\"h\":1},{\"i\":1},{\"j\":"
    "1},"
    "{\"k\":1},{\"l\":1},{\"m\":1}]",
};

TEST(Json, WritesEveryValueAsItWasRead) {
    for (char const* const text : survivors) {
        SCOPED_TRACE(text);
        EXPECT_EQ(compact(*readJsonText(text)), text);
        EXPECT_EQ(compact(*readJson(piecesOf(text, 1))), text);
        std::string const indented = writeJsonText(*readJsonText(text), laidOut(JsonLayout::Indented));
        EXPECT_EQ(compact(*readJsonText(indented)), text);
    }
}

struct Mapping {
    char const* text;
    char const* image;
};

Mapping const mappings[] = {
    {"{\"a\":1,\"b\":[true,null]}", "<{}>(2 1a 24607182418800017408)(2 1b 3<[]>(3 1value 1TRUE 0e))"},
    {"[{\"k\":\"x\"},{\"l\":\"1\"}]", "<[{}]>(3 1k 1x 2e0)(3 1l 2e0 11)"},
    {" [ ] ", "<[]>"},
    {"\xEF\xBB\xBF\"x\"", "<$>(2 1value 1x)"},
    {"[1.0,1e0,100e-2]",
     "<[]>(4 1value 24607182418800017408 24607182418800017408 24607182418800017408)"},
    {"\"\\u00e9\\ud83d\\ude00\\/\"", "<$>(2 1value 1\xC3\xA9\xF0\x9F\x98\x80/)"},
    {"12345678901234567890",
     "<$>(2 1value 112345678901234567890)attributes<Attributes>(2 1$json 10/1 number)"},
    {"[1e-999]", "<[]>(2 1value 20)"},
};

TEST(Json, MapsValuesToTables) {
    for (Mapping const& row : mappings) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(image(*readJsonText(row.text)), row.image);
    }
}

TEST(Json, LeadsPathsThroughObjectsAndArrays) {
    Ptr<Table> const table =
        readJsonText(R"({"tags":["x","y"],"pets":[{"kind":"cat"},{"kind":"dog","age":3}]})");
    Table const& found = *table;
    EXPECT_EQ(text(found.atXPath("pets/kind[2]", Cell())), "dog");
    EXPECT_EQ(text(found.atXPath("pets/age[2]", Cell())), "3");
    EXPECT_TRUE(found.atXPath("pets/age[1]", Cell()).empty());
    EXPECT_EQ(text(found.atXPath("tags/value[2]", Cell())), "y");
}

struct Refusal {
    std::string text;
    char const* message;
};

Refusal const refusals[] = {
    {"", "f:1:1: there is no value, the input is empty"},
    {" \n ", "f:2:2: there is no value, the input is empty"},
    {"[1,\n 2,]", "f:2:4: this is no value"},
    {"{\"a\":1,}", "f:1:8: a key in quotes, or a closing brace, is expected here"},
    {"{\"a\" 1}", "f:1:6: a colon is expected behind the key"},
    {"{\"a\":1 2}", "f:1:8: a comma or a closing brace is expected behind the member of an object"},
    {"[1 2]", "f:1:4: a comma or a closing bracket is expected behind the element of an array"},
    {"[1", "f:1:3: the input ends in the middle of a value"},
    {"\"x", "f:1:3: the input ends in the middle of a value"},
    {"1 x", "f:1:3: text follows the value"},
    {std::string("1\0", 2), "f:1:2: text follows the value"},
    {std::string("[\0]", 3), "f:1:2: this is no value"},
    {"[01]", "f:1:3: a comma or a closing bracket is expected behind the element of an array"},
    {"[1.]", "f:1:4: digits are missing behind the point of a number"},
    {"[1e]", "f:1:4: digits are missing in the exponent of a number"},
    {"[NaN]", "f:1:2: this is no value"},
    {"[1e999]", "f:1:2: the number is beyond the range of a double"},
    {"[\"\\ud800\"]", "f:1:3: a surrogate stands alone"},
    {"[\"\\udc00 \"]", "f:1:3: a surrogate stands alone"},
    {"[\"\\x\"]", "f:1:3: this is no escape, or a control character that is not escaped"},
    {"[\"a\nb\"]", "f:1:4: this is no escape, or a control character that is not escaped"},
    {"[\"a\xC3(\"]", "f:1:4: these bytes are no UTF-8"},
    {"[\"\xED\xA0\x80\"]", "f:1:3: these bytes are no UTF-8"},
    {"\xFF\xFE[", "f:1:1: the text is UTF-16; convert it to UTF-8 first"},
    {"\x1F\x8B\x08", "f: this is not text but gzip data"},
};

TEST(Json, RefusesWithThePlace) {
    JsonReadOptions options;
    options.name = "f";
    for (Refusal const& row : refusals) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(ioError([&] { readJsonText(row.text, options); }), row.message);
        EXPECT_EQ(ioError([&] { readJson(piecesOf(row.text, 1), options); }), row.message);
    }
}

TEST(Json, TreatsKeysNumbersAndSequencesAsTheOptionsSay) {
    JsonReadOptions options;
    options.uniqueKeys = true;
    EXPECT_EQ(ioError([&] { readJsonText("[{\"a\":1},{\"a\":1,\n\"a\":2}]", options); }),
              "2:4: the key \"a\" is twice in one object");
    EXPECT_EQ(compact(*readJsonText("[{\"a\":1},{\"a\":{\"a\":2}}]", options)),
              "[{\"a\":1},{\"a\":{\"a\":2}}]");
    options.big = JsonBig::Raise;
    EXPECT_EQ(ioError([&] { readJsonText("9007199254740993", options); }),
              "1:1: the number \"9007199254740993\" has more digits than can be held");
    options.big = JsonBig::Nearest;
    JsonReport report;
    EXPECT_EQ(compact(*readJsonText("[[9007199254740993,1]]", options, &report)),
              "[[9007199254740992,1]]");
    EXPECT_EQ(report.bigNumbers, 1U);
    EXPECT_EQ(report.values, 2U);
    EXPECT_EQ(report.depth, 2U);
    options.sequence = true;
    std::string const lines = "{\"a\":1}\n{\"a\":2}\n";
    EXPECT_EQ(compact(*readJsonText(lines, options)), "[{\"a\":1},{\"a\":2}]");
    EXPECT_EQ(writeJsonText(*readJsonText(lines, options), laidOut(JsonLayout::Lines)), lines);
    EXPECT_EQ(compact(*readJsonText(" ", options)), "[]");
    EXPECT_EQ(ioError([&] { readJsonText("1\n]", options); }), "2:1: this is no value");
}

Ptr<Table> mixed() {
    Ptr<Table> const table(new Table("prices"));
    table->at(0, 0) = Str("fruit");
    table->at(0, 1) = Str("apple");
    table->at(0, 2) = Cell(Status("gone", Status::Error, -1));
    table->at(1, 0) = Str("price");
    table->at(1, 1) = 3.5;
    table->at(1, 2) = HUGE_VAL;
    table->at(2, 0) = Str("fruit");
    table->at(2, 1) = undefined();
    table->at(3, 2) = textCell("\xFF");
    return table;
}

TEST(Json, WritesRowsOfAnyTable) {
    JsonWriteOptions options;
    options.replaceInvalid = true;
    EXPECT_EQ(writeJsonText(*mixed(), options),
              "[\n  {\"fruit\":\"apple\",\"price\":3.5,\"column 4\":null},\n"
              "  {\"fruit\":\"#Err: gone\",\"price\":null,\"fruit (2)\":null,\"column "
              "4\":\"\xEF\xBF\xBD\"}\n]\n");
    EXPECT_EQ(ioError([&] { writeJsonText(*mixed()); }), "the text \"\xFF\" is no UTF-8");
    options.strict = true;
    EXPECT_EQ(ioError([&] { writeJsonText(*mixed(), options); }), "JSON has no place for an error");
    EXPECT_EQ(writeJsonText(*readJsonText("{\"a\":[1,{}]}"), laidOut(JsonLayout::Indented)),
              "{\n    \"a\": [\n        1,\n        {}\n    ]\n}\n");
    std::ostream refusing(nullptr);
    EXPECT_EQ(ioError([&] { writeJson(refusing, Table()); }), "the output takes no more");
}

TEST(Json, EndsAtTablesThatContainThemselves) {
    Ptr<Table> const table(new Table("t"));
    table->at(0, 1) = Cell(table);
    EXPECT_EQ(ioError([&] { writeJsonText(*table); }), "the table contains itself");
    table->at(0, 1) = Cell();
    table->getAttributes()->at(0, 1) = Cell(table);
    JsonWriteOptions exact;
    exact.exact = true;
    EXPECT_EQ(ioError([&] { writeJsonText(*table, exact); }), "the table contains itself");
    table->setAttributes(nullptr);
}

TEST(Json, NestsToAnyDepth) {
    constexpr std::size_t depth = 200'000;
    std::string arrays = std::string(depth, '[') + std::string(depth, ']');
    EXPECT_EQ(compact(*readJsonText(arrays)), arrays);
    arrays.pop_back();
    EXPECT_NE(ioError([&] { readJsonText(arrays); }).find("the input ends"), std::string::npos);
    std::string objects;
    for (std::size_t n = 0; n < depth; ++n) {
        objects += "[{\"a\":";
    }
    objects += "1";
    for (std::size_t n = 0; n < depth; ++n) {
        objects += "}]";
    }
    EXPECT_EQ(compact(*readJsonText(objects)), objects);
}

// Objects that share no keys would make a rectangle of mostly nothing.
TEST(Json, HoldsArraysOfDifferentObjectsInLinearMemory) {
    std::string text = "[";
    for (int n = 0; n < 20'000; ++n) {
        text += (n == 0 ? "{\"k" : ",{\"k") + std::to_string(n) + "\":1}";
    }
    text += "]";
    Ptr<Table> const table = readJsonText(text);
    EXPECT_EQ(table->indices(), 1U);
    EXPECT_EQ(compact(*table), text);
}

class GeneratedTable {
public:
    explicit GeneratedTable(unsigned seed) : hard_(seed) {}

    Ptr<Table> make(std::size_t depth) {
        static char const* const names[] = {"{}", "[]", "[{}]", "$", "t"};
        Ptr<Table> const table(new Table(names[hard_.below(5)]));
        std::size_t const width = hard_.below(4);
        std::size_t const items = hard_.below(4);
        for (std::size_t i = 0; i < width; ++i) {
            std::vector<Cell> cells;
            for (std::size_t j = 0; j < (hard_.below(4) == 0 ? hard_.below(4) : items); ++j) {
                cells.push_back(j == 0 && hard_.below(3) != 0 ? nameOf(i) : cell(depth));
            }
            addIndex(*table, std::move(cells));
        }
        if (depth > 0 && hard_.below(8) == 0) {
            table->setAttributes(make(0));
        }
        return table;
    }

private:
    Cell nameOf(std::size_t i) {
        return hard_.below(4) == 0   ? Cell()
               : hard_.below(4) == 0 ? textCell(hard_.text())
                                     : Cell(Str("k" + std::to_string(i)));
    }
    Cell cell(std::size_t depth) {
        switch (hard_.below(depth == 0 ? 6 : 9)) {
        case 0:
            return Cell();
        case 1:
            return textCell(hard_.text());
        case 2:
            return Cell(hard_.number());
        case 3:
            return undefined(hard_.below(2) == 0 ? 0 : hard_.number());
        case 4:
            return hard_.below(2) == 0 ? Cell(HUGE_VAL) : textCell("\xFF" + hard_.text());
        case 5:
            return Cell(Status(Str(hard_.text()), Status::Error, -1));
        default:
            return Cell(make(depth - 1));
        }
    }

    HardCells hard_;
};

TEST(Json, ReadsGeneratedTablesBackExactly) {
    JsonReadOptions reading;
    JsonWriteOptions writing;
    reading.exact = writing.exact = true;
    for (unsigned seed = 0; seed < 3000; ++seed) {
        SCOPED_TRACE(seed);
        Ptr<Table> const table = GeneratedTable(seed).make(3);
        std::string const written = writeJsonText(*table, writing);
        SCOPED_TRACE(written);
        ASSERT_EQ(image(*readJsonText(written, reading)), image(*table));
    }
}

} // namespace
} // namespace QX
