#include "vela7/testing/protocol.h"

#include <cstdio>

namespace vela7::testkit {

void Write(std::ostream& line, const std::string& text)
{
    line << '"' << text << '"';
}

void Write(std::ostream& line, const _color& color)
{
    char text[sizeof "#rrggbbaa"];
    const int digits = color.alpha != 255 ? 9 : 7;
    std::snprintf(text, sizeof text, "#%02x%02x%02x%02x", color.red, color.green, color.blue, color.alpha);
    line << (color.flag ? "none" : std::string(text, static_cast<std::size_t>(digits)));
}

void Write(std::ostream& line, const pen& value)
{
    Write(line, value.color);
    line << " width " << value.width << " style " << value.style;
}

void Write(std::ostream& line, const brush& value)
{
    Write(line, value.color);
    line << " style " << value.style;
}

void Write(std::ostream& line, const font& value)
{
    Write(line, value.face);
    line << ' ' << value.size << " style " << value.style << " angle " << value.angle << " scale "
         << value.scale;
}

void Write(std::ostream& line, const point<int>& p)
{
    line << '(' << p.x << ',' << p.y << ')';
}

} // namespace vela7::testkit
