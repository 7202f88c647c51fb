#include "io/jsonparser.h"

#include "io/jsonnumber.h"

namespace QX {

namespace {

std::string messageOf(rapidjson::ParseErrorCode code) {
    switch (code) {
    case rapidjson::kParseErrorDocumentRootNotSingular:
        return "text follows the value";
    case rapidjson::kParseErrorDocumentEmpty:
    case rapidjson::kParseErrorValueInvalid:
        return "this is no value";
    case rapidjson::kParseErrorObjectMissName:
        return "a key in quotes, or a closing brace, is expected here";
    case rapidjson::kParseErrorObjectMissColon:
        return "a colon is expected behind the key";
    case rapidjson::kParseErrorObjectMissCommaOrCurlyBracket:
        return "a comma or a closing brace is expected behind the member of an object";
    case rapidjson::kParseErrorArrayMissCommaOrSquareBracket:
        return "a comma or a closing bracket is expected behind the element of an array";
    case rapidjson::kParseErrorStringUnicodeEscapeInvalidHex:
        return "\\u takes four hexadecimal digits";
    case rapidjson::kParseErrorStringUnicodeSurrogateInvalid:
        return loneSurrogate;
    case rapidjson::kParseErrorStringEscapeInvalid:
        return "this is no escape, or a control character that is not escaped";
    case rapidjson::kParseErrorStringMissQuotationMark:
        return "a string has no closing quote, or holds a control character that is not escaped";
    case rapidjson::kParseErrorStringInvalidEncoding:
        return "these bytes are no UTF-8";
    case rapidjson::kParseErrorNumberTooBig:
        return beyondRange;
    case rapidjson::kParseErrorNumberMissFraction:
        return "digits are missing behind the point of a number";
    case rapidjson::kParseErrorNumberMissExponent:
        return "digits are missing in the exponent of a number";
    case rapidjson::kParseErrorNone:
    case rapidjson::kParseErrorTermination:
    case rapidjson::kParseErrorUnspecificSyntaxError:
        break;
    }
    return "this is no JSON";
}

} // namespace

std::string parseFault(rapidjson::ParseErrorCode code, JsonInput& input) {
    bool const empty = code == rapidjson::kParseErrorDocumentEmpty;
    if (input.atEnd()) {
        return empty ? "there is no value, the input is empty"
                     : "the input ends in the middle of a value";
    }
    return messageOf(code);
}

} // namespace QX
