#pragma once

#include <QString>
#include <QStringList>

namespace pendant {

/// What the head of a library file tells before it is loaded.
struct ElfFacts
{
    bool isLibrary = false; ///< an ELF shared object
    bool isNative = false;  ///< for the machine of this process; only then `needed` is filled
    QStringList needed;     ///< names of the libraries that it needs
};

/// Reads the head of the file. A file that is damaged or no library yields what could be read.
ElfFacts readElf(const QString& file);

} // namespace pendant
