#include "listoption.h"

namespace qxtab {

namespace {

char const* const listHelp =
    "\n\nNames and values are written as in a CSV file: in double quotes when they hold a\n"
    "comma, an equals sign or blanks at an end (the shell needs quotes around those), with\n"
    "a quote inside them doubled: '\"km, mean\"=1'. 12 and 12.0 are one number.";

void explainLists(CLI::App& app) {
    app.footer(app.get_footer() + listHelp);
}

QX::Ptr<QX::Table const> readOption(char const* flag, ReadList read, std::string const& text) {
    try {
        return read(text);
    } catch (ListError const& e) {
        throw CLI::ValidationError(flag, e.what());
    }
}

} // namespace

CLI::Option* addList(CLI::App& app, char const* flag, QX::Ptr<QX::Table const>& operand, ReadList read,
                     char const* help) {
    explainLists(app);
    auto const store = [flag, &operand, read](std::string const& text) {
        operand = readOption(flag, read, text);
    };
    return app.add_option_function<std::string>(flag, store, help)->type_name("LIST");
}

CLI::Option* addLists(CLI::App& app, char const* flag, std::vector<QX::Ptr<QX::Table const>>& operands,
                      ReadList read, char const* help) {
    explainLists(app);
    auto const store = [flag, &operands, read](std::vector<std::string> const& texts) {
        for (std::string const& text : texts) {
            operands.push_back(readOption(flag, read, text));
        }
    };
    return app.add_option_function<std::vector<std::string>>(flag, store, help)
        ->allow_extra_args(false) // what follows the first word is a file
        ->type_name("LIST");
}

} // namespace qxtab
