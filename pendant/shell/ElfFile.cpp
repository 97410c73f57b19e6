#include "ElfFile.h"

#include <QFile>

#include <elf.h>
#include <link.h>

#include <cstring>
#include <optional>
#include <vector>

namespace pendant {

namespace {

using Head = ElfW(Ehdr);
using Segment = ElfW(Phdr);
using Entry = ElfW(Dyn);

#if __ELF_NATIVE_CLASS == 64
constexpr unsigned char NativeClass = ELFCLASS64;
#else
constexpr unsigned char NativeClass = ELFCLASS32;
#endif

/// The bytes of the file; every read is checked against their end.
class Image
{
public:
    explicit Image(const QByteArray& content)
        : bytes(content)
    {}

    template<typename Record>
    std::optional<Record> record(quint64 offset) const
    {
        const auto size = static_cast<quint64>(bytes.size());
        if (offset > size || size - offset < sizeof(Record))
            return std::nullopt;
        Record result;
        std::memcpy(&result, bytes.constData() + offset, sizeof(Record));
        return result;
    }

    QString text(quint64 offset) const
    {
        const auto size = static_cast<quint64>(bytes.size());
        if (offset >= size)
            return {};
        const char* start = bytes.constData() + offset;
        return QString::fromLocal8Bit(start,
                                      static_cast<int>(qstrnlen(start, uint(size - offset))));
    }

private:
    const QByteArray& bytes;
};

std::vector<Segment> segmentsOf(const Image& image, const Head& head)
{
    std::vector<Segment> segments;
    for (unsigned i = 0; i < head.e_phnum; ++i) {
        if (const auto segment = image.record<Segment>(head.e_phoff + i * sizeof(Segment)))
            segments.push_back(*segment);
    }
    return segments;
}

// Where in the file the address of the loaded library lies.
std::optional<quint64> offsetOf(const std::vector<Segment>& segments, quint64 address)
{
    for (const Segment& each : segments) {
        if (each.p_type == PT_LOAD && address >= each.p_vaddr &&
            address - each.p_vaddr < each.p_filesz)
            return each.p_offset + (address - each.p_vaddr);
    }
    return std::nullopt;
}

std::vector<Entry> dynamicEntries(const Image& image, const Segment& segment)
{
    std::vector<Entry> entries;
    for (quint64 offset = 0; offset < segment.p_filesz; offset += sizeof(Entry)) {
        const auto entry = image.record<Entry>(segment.p_offset + offset);
        if (!entry || entry->d_tag == DT_NULL)
            break;
        entries.push_back(*entry);
    }
    return entries;
}

QStringList neededNames(const Image& image, const std::vector<Segment>& segments,
                        const std::vector<Entry>& entries)
{
    std::optional<quint64> names;
    for (const Entry& entry : entries) {
        if (entry.d_tag == DT_STRTAB)
            names = offsetOf(segments, entry.d_un.d_ptr);
    }
    QStringList needed;
    for (const Entry& entry : entries) {
        if (names && entry.d_tag == DT_NEEDED)
            needed << image.text(*names + entry.d_un.d_val);
    }
    return needed;
}

QStringList readNeeded(const Image& image, const Head& head)
{
    const std::vector<Segment> segments = segmentsOf(image, head);
    for (const Segment& segment : segments) {
        if (segment.p_type == PT_DYNAMIC)
            return neededNames(image, segments, dynamicEntries(image, segment));
    }
    return {};
}

// The machine of this very process, from its own head.
bool isOwnMachine(const Head& head)
{
    QFile self(QStringLiteral("/proc/self/exe"));
    Head own;
    if (!self.open(QIODevice::ReadOnly) ||
        self.read(reinterpret_cast<char*>(&own), sizeof(own)) != qint64(sizeof(own)))
        return true;
    return head.e_machine == own.e_machine && head.e_ident[EI_DATA] == own.e_ident[EI_DATA];
}

} // namespace

ElfFacts readElf(const QString& path)
{
    ElfFacts facts;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return facts;
    const QByteArray content = file.readAll();
    const Image image(content);
    const auto head = image.record<Head>(0);
    if (!head || std::memcmp(head->e_ident, ELFMAG, SELFMAG) != 0)
        return facts;
    // The type stands at the same place for both classes.
    facts.isLibrary = head->e_type == ET_DYN;
    facts.isNative = head->e_ident[EI_CLASS] == NativeClass && isOwnMachine(*head);
    if (facts.isLibrary && facts.isNative)
        facts.needed = readNeeded(image, *head);
    return facts;
}

} // namespace pendant
