#include "bytes.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace table {

namespace {

constexpr std::size_t mostGrowth = 64; // of the pieces

class FileBytes : public ByteSource
{
public:
    explicit FileBytes(int file) : m_file(file) {}
    ~FileBytes() override { close(m_file); }
    FileBytes(const FileBytes&) = delete;
    FileBytes& operator=(const FileBytes&) = delete;

    // Empty, or why it cannot be read.
    std::string Check()
    {
        if (fstat(m_file, &m_opened) != 0)
            return std::strerror(errno);
        if (S_ISDIR(m_opened.st_mode))
            return "This is a directory, not a file";
        if (!S_ISREG(m_opened.st_mode))
            return "This is not an ordinary file";
        return m_opened.st_size == 0 ? "The file is empty" : "";
    }

    std::uint64_t Size() const override { return std::uint64_t(m_opened.st_size); }

    std::size_t Read(std::uint64_t at, char* to, std::size_t count) const override
    {
        std::size_t got = 0;
        while (got < count) {
            const ssize_t more = pread(m_file, to + got, count - got, off_t(at + got));
            if (more > 0)
                got += std::size_t(more);
            else if (more == 0 || errno != EINTR)
                break;
        }
        return got;
    }

    std::uint64_t SizeNow() const override
    {
        struct stat now = {};
        return fstat(m_file, &now) == 0 ? std::uint64_t(now.st_size) : 0;
    }

    State Now() const override
    {
        struct stat now = {};
        if (fstat(m_file, &now) != 0 || now.st_size < m_opened.st_size)
            return State::shortened;
        if (now.st_size != m_opened.st_size || now.st_mtim.tv_sec != m_opened.st_mtim.tv_sec ||
            now.st_mtim.tv_nsec != m_opened.st_mtim.tv_nsec)
            return State::changed;
        return now.st_nlink == 0 && m_opened.st_nlink > 0 ? State::replaced : State::unchanged;
    }

private:
    const int m_file;
    struct stat m_opened = {};
};

} // namespace

std::unique_ptr<ByteSource> OpenFile(const std::string& path, std::string& error)
{
    const int file =
        open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); // a pipe without writer must not block
    if (file < 0) {
        error = std::strerror(errno);
        return nullptr;
    }
    auto bytes = std::make_unique<FileBytes>(file);
    error = bytes->Check();
    return error.empty() ? std::move(bytes) : nullptr;
}

// Going on, it reads more and more, and keeps a little of what came before: the beginning of what is being
// looked at.
std::string_view ByteWindow::Load(std::uint64_t at, std::size_t least)
{
    const std::uint64_t size = Size(), end = End();
    if (at >= size)
        return {};
    least = std::size_t(std::min<std::uint64_t>(least, size - at));
    const bool onwards = m_length > 0 && at >= m_at && at <= end;
    if (!onwards || at + least > end) {
        if (m_onRead)
            m_onRead();
        const std::size_t usual = m_source.PieceSize();
        const std::uint64_t from = onwards ? end : at;
        m_piece = onwards ? std::min(2 * m_piece, mostGrowth * usual) : usual;
        const auto kept = onwards ? std::size_t(std::min(end - m_at, end - at + usual)) : 0;
        const auto count =
            std::size_t(std::min(std::max<std::uint64_t>(at + least - from, m_piece), size - from));
        if (m_buffer.size() < kept + count)
            m_buffer.resize(std::max(kept + count, m_buffer.size() * 2));
        std::memmove(m_buffer.data(), m_buffer.data() + m_length - kept, kept);
        m_at = from - kept;
        m_length = kept + m_source.Read(from, m_buffer.data() + kept, count);
        m_lost |= m_at + m_length < at + least;
    }
    if (at >= End())
        return {};
    return {m_buffer.data() + (at - m_at), std::size_t(End() - at)};
}

} // namespace table
