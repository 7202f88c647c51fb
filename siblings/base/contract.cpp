// What QX asks of the base library that it is built on: its members, held against when this is compiled, and
// what they do, when it is run. Says what is missing and exits with 1.

#include "qxbase/analyticdouble.h"
#include "qxbase/report.h"
#include "qxbase/status.h"
#include "qxbase/str.h"

#include <concepts>
#include <iostream>
#include <set>
#include <sstream>
#include <string>
#include <type_traits>

using QX::AnalyticDouble;
using QX::Report;
using QX::Status;
using QX::Str;

namespace {

using Size = std::size_t;

template <typename S>
concept Assigns = requires(S s, char const* bytes, Size size) {
    s.assign(bytes, size);
};
template <typename S>
concept GivesBytes = requires(S const& s) {
    { s.empty() } -> std::convertible_to<bool>;
    { s.size() } -> std::convertible_to<Size>;
    { s.get() } -> std::convertible_to<char const*>;
    { s.data() } -> std::convertible_to<char const*>;
};
template <typename S>
concept Appends = requires(S s, S const& other) {
    { other + other } -> std::convertible_to<S>;
    { s += other } -> std::convertible_to<S const&>;
};
template <typename S>
concept Compares = requires(S const& s) {
    { s == s } -> std::convertible_to<bool>;
    { s.compare(s, true) } -> std::convertible_to<int>;
    { s.comparePrefix(s, true, Size(1)) } -> std::convertible_to<int>;
};
template <typename S>
concept WritesNumbers = requires(int number, double fraction) {
    { S::asString(number) } -> std::convertible_to<S>;
    { S::asString(fraction) } -> std::convertible_to<S>;
};
template <typename T>
concept Prints = requires(std::ostream& os, T const& value) {
    os << value;
};

static_assert(std::default_initializable<Str> && std::copyable<Str> &&
                  std::constructible_from<Str, char const*> &&
                  std::constructible_from<Str, std::string const&>,
              "Str needs Str(), Str(char const*), Str(std::string const&), a copy and an assignment");
static_assert(std::convertible_to<char const*, Str> && std::convertible_to<std::string, Str>,
              "texts must convert to Str without a cast");
static_assert(std::has_virtual_destructor_v<Str>, "Str needs a virtual destructor");
static_assert(Assigns<Str>, "Str needs assign(char const* bytes, std::size_t size)");
static_assert(GivesBytes<Str>, "Str needs empty(), size(), get() and data(), const");
static_assert(Appends<Str>, "Str needs operator+(Str const&) const and operator+=(Str const&)");
static_assert(Compares<Str>, "Str needs operator==, compare(Str const&, bool) and "
                             "comparePrefix(Str const&, bool, std::size_t), const");
static_assert(WritesNumbers<Str>, "Str needs the static asString(int) and asString(double)");
static_assert(Prints<Str>, "Str needs operator<<(std::ostream&, Str const&)");

template <typename S>
concept TakesTexts = requires(S s, char const* text, Str const& str, std::string const& string) {
    { s << text } -> std::convertible_to<S const&>;
    { s << str } -> std::convertible_to<S const&>;
    { s << string } -> std::convertible_to<S const&>;
    { s << 7ULL } -> std::convertible_to<S const&>;
};
template <typename S>
concept Clears = requires(S s) {
    s.clear();
};
template <typename S>
concept Tells = requires(S const& s) {
    { s.message(true) } -> std::convertible_to<Str>;
    { s.state() } -> std::convertible_to<typename S::State>;
    { s.code() } -> std::convertible_to<int>;
    { s.ok() } -> std::convertible_to<bool>;
};

static_assert(std::default_initializable<Status> && std::copyable<Status> &&
                  std::constructible_from<Status, Str const&, Status::State, int>,
              "Status needs Status(), Status(Str const&, Status::State, int), a copy and an assignment");
static_assert(int(Status::Ok) == 0 && int(Status::Warning) == 1 && int(Status::Error) == 2 &&
                  int(Status::Critical) == 3,
              "Status::State needs Ok 0, Warning 1, Error 2 and Critical 3");
static_assert(
    requires(Status s) { s.clear(); }, "Status needs clear()");
static_assert(TakesTexts<Status>, "Status needs operator<< for char const*, Str const&, "
                                  "std::string const& and unsigned long long");
static_assert(Tells<Status>, "Status needs message(bool), state(), code() and ok(), const");

template <typename R>
concept Places = requires(R const& r, std::ostream& os) {
    { r.file() } -> std::convertible_to<Str>;
    { r.line() } -> std::convertible_to<int>;
    r.display(os);
};

static_assert(std::derived_from<Report, Status>, "Report must derive from Status");
static_assert(std::default_initializable<Report> && std::copyable<Report> &&
                  std::constructible_from<Report, Status const&, Str, int>,
              "Report needs Report(), Report(Status const&, Str, int), a copy and an assignment");
static_assert(Places<Report>, "Report needs file(), line() and display(std::ostream&), const");

template <typename A>
concept HasFields = requires(A a) {
    a.value = 1.5, a.valid = true;
};
template <typename A>
concept Computes = requires(A const& a) {
    { a.get() } -> std::convertible_to<double>;
    { a.isValid() } -> std::convertible_to<bool>;
    { a + a } -> std::convertible_to<A>;
    { a - a } -> std::convertible_to<A>;
    { a* a } -> std::convertible_to<A>;
    { a / a } -> std::convertible_to<A>;
};

static_assert(
    std::default_initializable<AnalyticDouble> && std::copyable<AnalyticDouble> &&
        std::constructible_from<AnalyticDouble, int, int>,
    "AnalyticDouble needs AnalyticDouble(), AnalyticDouble(int, int), a copy and an assignment");
static_assert(HasFields<AnalyticDouble>,
              "AnalyticDouble needs the public fields double value and bool valid");
static_assert(Computes<AnalyticDouble>, "AnalyticDouble needs get(), isValid(), +, -, * and /, const");

std::set<std::string> broken;

void require(bool holds, char const* rule) {
    if (!holds && broken.insert(rule).second) {
        std::cout << rule << '\n';
    }
}

int sign(int order) {
    return (order > 0) - (order < 0);
}

void checkTexts() {
    Str const zero(std::string("a\0b", 3));
    Str assigned("before");
    assigned.assign("a\0b", 3);
    require(zero.size() == 3 && assigned == zero && zero.get()[3] == 0, "Str must keep zero bytes");
    require(Str("a") + Str("b") == Str("ab"), "Str + Str must concatenate");
    require(Str().empty() && Str(static_cast<char const*>(nullptr)).empty(),
            "Str() and Str of a null pointer must be empty");
    char const* const ascending[] = {"", "A", "AB", "B", "_", "a", "aB", "ab", "b", "\xc3\xa4"};
    char const* const folded[] = {"_", "a", "ab", "b", "\xc3\x84", "\xc3\xa4"};
    for (char const* const left : ascending) {
        for (char const* const right : ascending) {
            int const order = sign(Str(left).compare(Str(right), false));
            require(order == sign(std::string(left).compare(right)),
                    "Str::compare(other, false) must compare unsigned bytes");
            require((Str(left) == Str(right)) == (order == 0), "Str::operator== must compare bytes");
        }
    }
    for (char const* const left : folded) {
        for (char const* const right : folded) {
            require(sign(Str(left).compare(Str(right), true)) == sign(std::string(left).compare(right)),
                    "Str::compare(other, true) must compare the bytes that are no letters of ASCII");
        }
    }
    require(Str("aBc").compare(Str("AbC"), true) == 0 && Str("A").compare(Str("b"), true) < 0,
            "Str::compare(other, true) must ignore the case of the letters of ASCII");
    require(
        Str("##").comparePrefix(Str("## 1"), false, 1) == 0 &&
            Str("##").comparePrefix(Str("#"), false, 1) != 0 &&
            Str("").comparePrefix(Str("x"), false, 1) != 0,
        "Str::comparePrefix(text, false, 1) must be 0 where this text, unless empty, begins the other");
    require(Str::asString(-12) == Str("-12"), "Str::asString(int) must write decimal digits");
    std::ostringstream os;
    os << zero;
    require(os.str() == std::string("a\0b", 3), "operator<< of a Str must write its bytes");
}

void checkStatuses() {
    Status status;
    require(status.ok() && status.state() == Status::Ok, "Status() must be Ok");
    status << "a" << Str("b") << std::string("c") << 7ULL;
    require(!status.ok() && status.message(false) == Str("abc7"),
            "Status::operator<< must append the text, and make the status a failure");
    status.clear();
    require(status.ok() && status.message(false).empty(), "Status::clear() must make the status Ok");
    Status const error("x", Status::Error, -1);
    require(error.state() == Status::Error && error.code() == -1 && error.message(false) == Str("x"),
            "Status must keep text, state and code");
    Report const report(error, "file", 3);
    std::ostringstream os;
    report.display(os);
    require(report.file() == Str("file") && report.line() == 3 && report.message(false) == Str("x"),
            "Report must keep status, file and line");
    require(os.str().find('x') != std::string::npos, "Report::display must write the message");
}

void checkNumbers() {
    AnalyticDouble six;
    six.value = 6;
    six.valid = true;
    AnalyticDouble bad = six;
    bad.valid = false;
    require((six + six).get() == 12 && (six - six).get() == 0 && (six * six).get() == 36 &&
                (six / six).get() == 1 && (six / six).isValid(),
            "AnalyticDouble must compute");
    require(!(six + bad).isValid() && !(bad * six).isValid() && !(six / (six - six)).isValid(),
            "AnalyticDouble must not be valid after an operand that is not, or after a division by 0");
}

} // namespace

int main() {
    checkTexts();
    checkStatuses();
    checkNumbers();
    return broken.empty() ? 0 : 1;
}
