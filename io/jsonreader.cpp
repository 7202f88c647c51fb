#include "io/bytesources.h"
#include "io/jsonbuilder.h"
#include "io/jsoninput.h"
#include "io/jsonparser.h"
#include "qx/json.h"

namespace QX {

namespace {

/// Gives what the parser meets to a builder.
class Handler {
public:
    explicit Handler(JsonBuilder& builder) : builder_(builder) {}

    bool Null() { return builder_.null(), true; }
    bool Bool(bool value) { return builder_.boolean(value), true; }
    bool RawNumber(char const* text, std::size_t size, bool /*copy*/) {
        return builder_.number({text, size});
    }
    bool String(char const* text, std::size_t size, bool /*copy*/) {
        return builder_.string({text, size}), true;
    }
    bool Key(char const* text, std::size_t size, bool /*copy*/) { return builder_.key({text, size}); }
    bool StartObject() { return builder_.beginObject(), true; }
    bool EndObject(std::size_t /*members*/) { return builder_.endObject(), true; }
    bool StartArray() { return builder_.beginArray(), true; }
    bool EndArray(std::size_t /*elements*/) { return builder_.endArray(), true; }

    // What only a parser that reads numbers itself would call.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(std::int64_t) { return false; }
    bool Uint64(std::uint64_t) { return false; }
    bool Double(double) { return false; }

private:
    JsonBuilder& builder_;
};

/// Reads one value, and stops behind it.
void readValue(JsonParser& reader, JsonInput& input, JsonBuilder& builder) {
    constexpr unsigned flags = rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag |
                               rapidjson::kParseNumbersAsStringsFlag | rapidjson::kParseStopWhenDoneFlag;
    Handler handler(builder);
    try {
        rapidjson::ParseResult const result = reader.Parse<flags>(input, handler);
        if (result.IsError()) {
            std::string const& fault = builder.fault();
            input.fail(result.Offset(), fault.empty() ? parseFault(result.Code(), input) : fault);
        }
    } catch (LoneSurrogate const&) {
        constexpr std::size_t escapeSize = 6;
        input.fail(input.Tell() - escapeSize, loneSurrogate);
    }
}

Ptr<Table> read(ByteSource const& source, JsonReadOptions const& options, JsonReport* report) {
    JsonReport unwanted;
    JsonReport& counts = report == nullptr ? unwanted : *report;
    counts = JsonReport();
    JsonInput input(source, options.progress, options.name);
    JsonBuilder builder(options, counts);
    JsonParser reader;
    if (options.sequence) {
        builder.beginArray();
        for (input.skipSpace(); !input.atEnd(); input.skipSpace()) {
            readValue(reader, input, builder);
            input.setValues(counts.values);
        }
        builder.endArray();
        return builder.take();
    }
    readValue(reader, input, builder);
    input.skipSpace();
    if (!input.atEnd()) {
        input.fail(input.Tell(), "text follows the value");
    }
    return builder.take();
}

} // namespace

Ptr<Table> readJson(ByteSource const& source, JsonReadOptions const& options, JsonReport* report) {
    return read(source, options, report);
}

Ptr<Table> readJson(std::istream& in, JsonReadOptions const& options, JsonReport* report) {
    return read(streamSource(in), options, report);
}

Ptr<Table> readJsonText(std::string_view text, JsonReadOptions const& options, JsonReport* report) {
    return read(textSource(text), options, report);
}

Ptr<Table> readJsonFile(std::string const& path, JsonReadOptions const& options, JsonReport* report) {
    JsonReadOptions named = options;
    named.name = options.name.empty() ? path : options.name;
    return read(fileSource(path), named, report);
}

} // namespace QX
