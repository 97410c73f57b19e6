#include "logfile.h"

namespace qelplugin {

LogFile* LogFile::open(const QString&)
{
    return nullptr;
}

} // namespace qelplugin
