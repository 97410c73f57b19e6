#pragma once

#include "Session.h"

#include <QString>

#include <memory>

/// A session that must come up.
inline std::unique_ptr<pendant::Session> openSession(const pendant::Options& options)
{
    QString error;
    auto session = pendant::Session::open(options, &error);
    if (!session)
        qFatal("%s", qPrintable(error));
    return session;
}
