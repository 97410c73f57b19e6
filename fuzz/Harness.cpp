#include "Harness.h"
#include "LeaksOfQt.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

std::vector<const char*>& allowedWarnings()
{
    // The platform without a display says this of every window and popup that is shown.
    static std::vector<const char*> starts{"This plugin does not support "};
    return starts;
}

bool isAllowed(const QByteArray& text)
{
    for (const char* start : allowedWarnings()) {
        if (text.startsWith(start))
            return true;
    }
    return false;
}

void takeMessage(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtDebugMsg || type == QtInfoMsg || isAllowed(text.toUtf8()))
        return;
    std::fprintf(stderr, "a warning: %s\n", qPrintable(text));
    std::abort();
}

} // namespace

void Fuzz::demand(bool holds, const char* property)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}

void Fuzz::allowWarning(const char* start)
{
    allowedWarnings().push_back(start);
}

QString Fuzz::text(const uint8_t* data, size_t size)
{
    if (size == 0 || data[0] != 0xff)
        return QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    QString text(static_cast<int>((size - 1) / sizeof(QChar)), Qt::Uninitialized);
    std::memcpy(text.data(), data + 1, static_cast<size_t>(text.size()) * sizeof(QChar));
    return text;
}

QJsonValue Fuzz::json(const uint8_t* data, size_t size)
{
    const auto bytes =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const LeaksOfQt leaks;
    const auto document = QJsonDocument::fromJson(bytes);
    if (document.isObject())
        return document.object();
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(QJsonValue::Undefined);
}

void Fuzz::settle()
{
    for (int round = 0; round < 4; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

// The application is never deleted: libFuzzer ends the process without coming back.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "96");
    static int applicationArguments = 1;
    Q_UNUSED(argc)
    static auto* application = new QApplication(applicationArguments, *argv);
    Q_UNUSED(application)
    qInstallMessageHandler(takeMessage);
    return 0;
}
