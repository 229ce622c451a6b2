/// What the table reads in the background: the file itself, the widths that its columns need, what is copied.
#pragma once

#include "csvfile.h"
#include "sorting.h"
#include "worker.h"

namespace table {

constexpr int padding = 4; // in a cell, left and right of its text
constexpr int narrowest = 16;

/// How wide texts are, without asking a painter, which would take longer than drawing them.
struct TextMeasure
{
    double advance[128] = {}; ///< of characters; [0]: the widest one's

    /// Of valid UTF-8; characters beyond ASCII count as the widest.
    int Width(const std::string& text) const;
};

/// The best widths of some columns: by their headers, by the first rows and some others.
class WidthTask : public Task
{
public:
    WidthTask(std::shared_ptr<const CsvFile> file, const TextMeasure& measure, int first, int last);

    bool Step() override;
    /// When done.
    const std::vector<int>& Widths() const { return m_widths; }

private:
    void Look(std::uint32_t row);

    const std::shared_ptr<const CsvFile> m_file;
    RowReader m_reader;
    const TextMeasure m_measure;
    const int m_first;
    std::vector<int> m_widths;
};

/// Opens and indexes a file.
class OpenTask : public Task
{
public:
    explicit OpenTask(std::string path) : m_path(std::move(path)) {}

    bool Step() override;
    /// When done; look at its Error first.
    std::shared_ptr<const CsvFile> File() const { return m_file; }

private:
    const std::string m_path;
    const std::shared_ptr<CsvFile> m_file = std::make_shared<CsvFile>();
    bool m_opened = false;
};

/// The text of a rectangle of cells, cells separated by tabs, rows by newlines; at most about 16 MiB.
class CopyTask : public Task
{
public:
    /// Both corners belong to it.
    CopyTask(std::shared_ptr<const CsvFile> file, Order order, CellPos first, CellPos last);

    bool Step() override;
    /// When done.
    const std::string& Text() const { return m_text; }

private:
    const std::shared_ptr<const CsvFile> m_file;
    const Order m_order;
    RowReader m_reader;
    const CellPos m_first, m_last;
    std::uint64_t m_row;
    std::string m_text;
};

} // namespace table
