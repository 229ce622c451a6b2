#include "convert/xpmread.h"

#include "port/gtkport.h"
#include "vela7/xpm.h"

#include <wx/log.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace vela7 {

namespace {

constexpr int maxSide = SHRT_MAX;      // of a pixmap
constexpr int maxPixels = INT_MAX / 4; // wx counts bytes in ints
constexpr char signature[] = "/* XPM */";

// wx reports odd lines by failed assertions, too.
class CQuiet
{
public:
    CQuiet() = default;
    ~CQuiet() { wxSetAssertHandler(m_before); }
    CQuiet(const CQuiet&) = delete;
    CQuiet& operator=(const CQuiet&) = delete;

private:
    const wxLogNull m_noLog;
    const wxAssertHandler_t m_before = wxSetAssertHandler(nullptr);
};

// Appends the string literals of C source; false when one, or a comment, does not end.
bool FindStrings(const std::string& source, std::vector<std::string>& strings)
{
    for (std::size_t at = 0; at < source.size();) {
        const bool comment = source.compare(at, 2, "/*") == 0;
        if (!comment && source[at] != '"') {
            ++at;
            continue;
        }
        const std::string mark = comment ? "*/" : "\"";
        const std::size_t begin = at + mark.size();
        const std::size_t end = source.find(mark, begin);
        if (end == std::string::npos)
            return false;
        if (!comment)
            strings.push_back(source.substr(begin, end - begin));
        at = end + mark.size();
    }
    return true;
}

} // namespace

bool IsPictureSize(double width, double height)
{
    return width >= 1 && height >= 1 && width <= maxSide && height <= maxSide && width * height <= maxPixels;
}

wxImage ReadXPM(const XPMImage& image)
{
    if (!image.GetBuffer() || !IsPictureSize(image.width, image.height))
        return {};
    const CQuiet quiet;
    return wxImage(image.GetBuffer());
}

// Not by wx, whose reader runs past the end of files that are cut.
std::optional<wxBitmap> ReadXPMFile(const std::string& fileName)
{
    std::error_code failed;
    if (std::filesystem::is_directory(fileName, failed))
        return wxBitmap(); // wx reads as many bytes as seeking in it seems to promise
    std::ifstream file(fileName, std::ios::binary);
    std::string text(sizeof signature - 1, '\0');
    if (!file.read(text.data(), static_cast<std::streamsize>(text.size())) || text != signature)
        return std::nullopt;
    text.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    std::vector<std::string> strings;
    if (!FindStrings(text, strings) || strings.empty())
        return wxBitmap();
    std::vector<const char*> lines;
    for (const std::string& line : strings)
        lines.push_back(line.c_str());
    const XPMImage image(lines.data()); // reads the first line only
    if (image.GetLineCount() > static_cast<int>(lines.size()))
        return wxBitmap();
    return ReadXPM(image).IsOk() ? gtkport::BitmapFromXPM(lines.data()) : wxBitmap();
}

} // namespace vela7
