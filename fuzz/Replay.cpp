// Stands in for libFuzzer: feeds the files of the folders that it is given, once each. So the
// corpora are tests of every build, also of compilers that have no fuzzer.

#include "Harness.h"

#include <QDirIterator>
#include <QFile>

#include <cstdio>

int main(int argc, char** argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    int count = 0;
    for (int index = 1; index < argc; ++index) {
        QDirIterator files(QString::fromLocal8Bit(argv[index]), QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.open(QIODevice::ReadOnly))
                return 1;
            const QByteArray bytes = file.readAll();
            std::printf("%s\n", qPrintable(file.fileName()));
            std::fflush(stdout);
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.constData()),
                                   static_cast<size_t>(bytes.size()));
            ++count;
        }
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
