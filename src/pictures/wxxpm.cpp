#include "vela7/wxxpm.h"

#include "pictures/imagehelpers.h"
#include "vela7/xpm.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

namespace vela7 {
namespace convert {

namespace {

constexpr char digits[] =
    " .XoO+@#$%&*=-;:>,<1234567890qwertyuipasdfghjklzxcvbnmMNBVCZASDFGHJKLPIUYTREWQ!~^/()_`'][{}|";
constexpr std::size_t base = sizeof digits - 1;
constexpr std::size_t colorCount = 1 << 24;
constexpr std::size_t longestKey = 4;
static_assert(base == 92 && base * base * base * base > colorCount);

using Key = std::array<char, longestKey>; // the key length says how many of them count
using Line = std::unique_ptr<char[]>;
using Colors = std::vector<std::uint32_t>;

constexpr std::uint32_t Pack(unsigned red, unsigned green, unsigned blue)
{
    return red << 16 | green << 8 | blue;
}

/// Numbers colours as they come and knows their keys: a hash table in open addressing.
class ColorTable
{
public:
    /// A new colour is added; when that changes KeyLength, the keys before are too short.
    const Key& KeyOf(std::uint32_t color)
    {
        const std::size_t at = Find(color);
        return m_slots[m_slots[at].key[0] ? at : Add(color)].key;
    }
    std::size_t KeyLength() const { return m_keyLength; }
    /// In the order of their numbers, from 1.
    const Colors& InOrder() const { return m_colors; }

private:
    struct Slot
    {
        std::uint32_t color = 0;
        Key key = {}; // zeros: free
    };

    /// The slot of the colour, or the free one where it belongs.
    std::size_t Find(std::uint32_t color) const
    {
        std::size_t at = (color * 0x9e3779b1u & (colorCount - 1)) >> m_shift; // one to one in 24 bits
        while (m_slots[at].key[0] && m_slots[at].color != color)
            at = (at + 1) & (m_slots.size() - 1);
        return at;
    }
    std::size_t Add(std::uint32_t color);
    void Enter(std::uint32_t color, std::size_t number);

    Colors m_colors;
    unsigned m_shift = 12; // even
    std::vector<Slot> m_slots{colorCount >> m_shift};
    std::size_t m_keyLength = 1; // of an image without colours, too
    std::size_t m_wide = base;   // fewer colours have keys of this length for certain
};

void ColorTable::Enter(std::uint32_t color, std::size_t number)
{
    Slot& slot = m_slots[Find(color)];
    slot.color = color;
    slot.key.fill(digits[0]);
    for (std::size_t i = m_keyLength; i-- > 0; number /= base)
        slot.key[i] = digits[number % base];
}

std::size_t ColorTable::Add(std::uint32_t color)
{
    m_colors.push_back(color);
    if (m_colors.size() > m_slots.size() / 2 && m_shift > 0) {
        m_shift -= 2;
        std::vector<Slot> before(colorCount >> m_shift);
        before.swap(m_slots);
        for (const Slot& slot : before)
            if (slot.key[0])
                m_slots[Find(slot.color)] = slot;
    }
    // Kept by contract: 92 colours take two characters. "None" is number 0, so that the last of them is
    // number 92, which has two digits.
    const double logarithm = m_colors.size() < m_wide ? 0 : std::log(static_cast<double>(m_colors.size()));
    if (static_cast<std::size_t>(logarithm / 4.5217885770490405 + 1.0) > m_keyLength) {
        ++m_keyLength, m_wide *= base;
        for (std::size_t number = 1; number < m_colors.size(); ++number)
            Enter(m_colors[number - 1], number);
    }
    Enter(color, m_colors.size());
    return Find(color);
}

/// Ascending: by the lower twelve bits, then by the upper twelve.
Colors Sorted(Colors colors)
{
    Colors sorted(colors.size());
    for (const unsigned shift : {0u, 12u}) {
        std::array<std::uint32_t, (1 << 12) + 1> starts = {};
        for (const std::uint32_t color : colors)
            ++starts[(color >> shift & 0xfff) + 1];
        std::partial_sum(starts.begin(), starts.end(), starts.begin());
        for (const std::uint32_t color : colors)
            sorted[starts[color >> shift & 0xfff]++] = color;
        colors.swap(sorted);
    }
    return colors;
}

Line MakeLine(const char* text, std::size_t length)
{
    Line line(new char[length + 1]);
    std::memcpy(line.get(), text, length);
    line[length] = '\0';
    return line;
}

/// Makes a line for each row. False when the keys became longer on the way: again, then.
bool MakeRows(const wxImage& image, ColorTable& table, std::vector<Line>& lines)
{
    lines.clear();
    const std::size_t length = table.KeyLength(), width = static_cast<std::size_t>(image.GetWidth());
    const std::uint32_t mask =
        image.HasMask() ? Pack(image.GetMaskRed(), image.GetMaskGreen(), image.GetMaskBlue()) : colorCount;
    const unsigned char* rgb = image.GetData();
    const unsigned char* alpha = image.GetAlpha();
    std::vector<char> row(width * length + longestKey); // keys are written in full, the next one overwrites
    for (int y = 0; y < image.GetHeight(); ++y) {
        char* out = row.data();
        for (std::size_t x = 0; x < width; ++x, rgb += 3, out += length) {
            const std::uint32_t color = Pack(rgb[0], rgb[1], rgb[2]);
            std::memcpy(out, table.KeyOf(color).data(), longestKey);
            if (color == mask || (alpha && alpha[(rgb - image.GetData()) / 3] < 128))
                std::memset(out, digits[0], longestKey);
        }
        if (table.KeyLength() != length)
            return false;
        lines.push_back(MakeLine(row.data(), width * length));
    }
    return true;
}

/// The rows, with all colours in the table; none for an image without pixels.
std::vector<Line> Convert(const wxImage* image, ColorTable& table)
{
    std::vector<Line> rows;
    // Kept by contract: counted in 32 bits.
    const bool any =
        image && image->IsOk() &&
        static_cast<unsigned>(image->GetWidth()) * static_cast<unsigned>(image->GetHeight()) != 0;
    while (any && !MakeRows(*image, table, rows)) {
    }
    return rows;
}

} // namespace

std::map<unsigned long, unsigned long> enum_colors(const wxImage* image)
{
    ColorTable table;
    Convert(image, table);
    std::map<unsigned long, unsigned long> result;
    for (const std::uint32_t color : table.InOrder())
        result.emplace(color, result.size() + 1);
    return result;
}

std::size_t scan_colors_count(const wxImage* image)
{
    return enum_colors(image).size();
}

char** wximage_to_xpm(const wxImage* image)
{
    ColorTable table;
    std::vector<Line> rows = Convert(image, table);
    const std::size_t length = table.KeyLength(), colors = table.InOrder().size();
    std::string line = std::to_string(rows.empty() ? 0 : image->GetWidth()) + ' ' +
                       std::to_string(rows.size()) + ' ' + std::to_string(colors + 1) + ' ' +
                       std::to_string(length);
    std::vector<Line> lines;
    lines.reserve(2 + colors + rows.size());
    lines.push_back(MakeLine(line.data(), line.size()));
    line = std::string(length, digits[0]) + " c None";
    lines.push_back(MakeLine(line.data(), line.size()));
    line = std::string(length, digits[0]) + " c #rrggbb";
    for (const std::uint32_t color : Sorted(table.InOrder())) {
        std::memcpy(line.data(), table.KeyOf(color).data(), length);
        for (std::size_t i = 0; i < 6; ++i)
            line[length + 4 + i] = "0123456789abcdef"[color >> (20 - 4 * i) & 0xf];
        lines.push_back(MakeLine(line.data(), line.size()));
    }
    for (Line& row : rows)
        lines.push_back(std::move(row));
    char** const result = new char*[lines.size()];
    for (std::size_t i = 0; i < lines.size(); ++i)
        result[i] = lines[i].release();
    return result;
}

void free_xpm_array(char** lines)
{
    int width = 0, height = 0, colors = 0, length = 0;
    if (lines && std::sscanf(lines[0], "%d %d %d %d", &width, &height, &colors, &length) == 4)
        for (long long i = 0, last = static_cast<long long>(height) + colors; i <= last; ++i)
            delete[] lines[i];
    delete[] lines;
}

void fill_xpm_from_wximage(XPMImage* xpm, const wxImage* image)
{
    if (!xpm || !image)
        return;
    const std::unique_ptr<char*, void (*)(char**)> lines(wximage_to_xpm(image), &free_xpm_array);
    xpm->SetBuffer(lines.get(), true);
    xpm->Init();
}

} // namespace convert

wxImage create_paletteless_image(const wxImage& image)
{
    AssertImage(image.IsOk(), 31, "create_paletteless_image", "image.IsOk()");
    if (!image.IsOk() || !image.HasPalette())
        return image;
    return image.GetSubImage(wxRect(0, 0, image.GetWidth(), image.GetHeight()));
}

} // namespace vela7
