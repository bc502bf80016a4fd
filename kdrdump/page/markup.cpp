#include "markup.h"

#include <iomanip>
#include <sstream>

namespace page {

std::string escaped(std::string const& text)
{
    std::string result;
    for (char const each : text) {
        if (each == '<')
            result += "&lt;";
        else if (each == '>')
            result += "&gt;";
        else if (each == '&')
            result += "&amp;";
        else if (each == '"')
            result += "&quot;";
        else if (static_cast<unsigned char>(each) < 0x20)
            result += "\xEF\xBF\xBD";
        else
            result += each;
    }
    // Two code points that are no characters, the last of the first plane.
    for (char const* none : {"\xEF\xBF\xBE", "\xEF\xBF\xBF"})
        for (auto at = result.find(none); at != std::string::npos; at = result.find(none, at))
            result.replace(at, 3, "\xEF\xBF\xBD");
    return result;
}

std::string attribute(char const* name, std::string const& value)
{
    return std::string(" ") + name + "=\"" + escaped(value) + '"';
}

std::string attribute(char const* name, double value)
{
    return attribute(name, fixedText(value, 3));
}

std::string element(std::string const& start, std::string const& content)
{
    return '<' + start + '>' + content + "</" + start.substr(0, start.find(' ')) + '>';
}

std::string fixedText(double value, int digits)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(digits) << value;
    return text.str();
}

std::string generalText(double value)
{
    std::ostringstream text;
    text << value;
    return text.str();
}

} // namespace page
