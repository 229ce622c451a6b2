/// A file's bytes, read and never mapped: somebody may shorten the file at any time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace table {

/// Where bytes come from. Thread: any, several at once.
class ByteSource
{
public:
    enum class State
    {
        unchanged, ///< since it was opened
        changed,
        replaced, ///< or deleted: what was opened is there, but its name stands for something else
        shortened
    };

    virtual ~ByteSource() = default;
    /// When it was opened; nothing beyond it is asked for.
    virtual std::uint64_t Size() const = 0;
    /// Answers how many bytes were read: fewer than count only where there are no more.
    virtual std::size_t Read(std::uint64_t at, char* to, std::size_t count) const = 0;
    virtual std::uint64_t SizeNow() const { return Size(); }
    virtual State Now() const { return State::unchanged; }
    /// How many bytes a window reads after a jump; up to 64 times as many where it goes on.
    virtual std::size_t PieceSize() const { return 4096; }
};

/// Ordinary files only. Null: error tells why.
std::unique_ptr<ByteSource> OpenFile(const std::string& path, std::string& error);

/// Bytes in memory, which must outlive it. A small piece size has everything cut into pieces.
class MemoryBytes : public ByteSource
{
public:
    explicit MemoryBytes(std::string_view bytes, std::size_t pieceSize = 4096)
        : m_bytes(bytes), m_pieceSize(pieceSize)
    {
    }
    std::uint64_t Size() const override { return m_bytes.size(); }
    std::size_t Read(std::uint64_t at, char* to, std::size_t count) const override
    {
        return m_bytes.copy(to, count, std::size_t(at));
    }
    std::size_t PieceSize() const override { return m_pieceSize; }

private:
    const std::string_view m_bytes;
    const std::size_t m_pieceSize;
};

/// A part of the bytes in memory, moved to where bytes are asked for. One thread each.
class ByteWindow
{
public:
    /// onRead is called before each read; it may throw.
    ByteWindow(const ByteSource& source, std::function<void()> onRead)
        : m_source(source), m_onRead(std::move(onRead))
    {
    }

    std::uint64_t Size() const { return m_source.Size(); }
    /// The bytes from a place on, at least so many of them. Fewer at the end, or where they are lost. Good
    /// until the next call.
    std::string_view From(std::uint64_t at, std::size_t least = 1)
    {
        const std::uint64_t skipped = at - m_at; // huge when it is before
        if (skipped < m_length && least <= m_length - skipped)
            return {m_buffer.data() + skipped, std::size_t(m_length - skipped)};
        return Load(at, least);
    }
    bool IsAt(std::uint64_t at, char what)
    {
        const std::string_view bytes = From(at);
        return !bytes.empty() && bytes[0] == what;
    }
    /// Bytes before Size() were asked for that are there no more.
    bool IsLost() const { return m_lost; }
    void ForgetLoss() { m_lost = false; }
    /// How far was read.
    std::uint64_t End() const { return m_at + m_length; }

private:
    std::string_view Load(std::uint64_t at, std::size_t least);

    const ByteSource& m_source;
    const std::function<void()> m_onRead;
    std::vector<char> m_buffer;
    std::uint64_t m_at = 0; // of the buffer's first byte
    std::size_t m_length = 0;
    std::size_t m_piece = 0; // read last
    bool m_lost = false;
};

} // namespace table
