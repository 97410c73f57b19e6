#pragma once

#include "Hand.h"
#include "Options.h"

#include <QImage>
#include <QJsonValue>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace pendant {

class Controller;
class MainWindow;
class Session;

inline QString latin(const char* text)
{
    return QString::fromLatin1(text);
}

/// What the operator reads for a text of a plugin or of the shell, in the language in force.
QString shown(const char* context, const char* text);

/// A pendant with a hand at it: what the steps of the tour are made of. Whatever returns a bool
/// tells whether it went as it should; if not, trouble() says why.
class TourStage
{
public:
    // Users by their level, and the severities of messages.
    static constexpr int OperatorLevel = 3;
    static constexpr int TooLow = 2;
    static constexpr int Information = 0;
    static constexpr int Warning = 1;
    static constexpr int Error = 2;

    /// The options must have their paths filled.
    explicit TourStage(const Options& options);
    ~TourStage();

    bool open();
    void close();
    /// Closes and opens, with the seam-tracking plugin coming as Options::trackingDelay says.
    bool openAgain(int trackingDelay);
    bool isOpen() const { return session != nullptr; }
    bool takePicture(const QString& file);

    // Of the open pendant.
    MainWindow& window() const;
    Session& pendant() const { return *session; }
    Controller& controller() const;
    Hand& hand() { return *atWork; }
    QString cellFile() const { return options.cellFile; }
    QJsonValue record(const QString& key) const;
    QImage indicators() const;
    const QImage& firstIndicators() const { return indicatorsAtStart; }

    bool fail(const QString& reason);
    bool expect(bool condition, const QString& otherwise);
    QString trouble() const;

    // Touches. What messages come after one is asked for below.
    QWidget* widget(const QString& name);
    bool logIn(int level);
    bool clickName(const QString& name);
    // Of the plugin, by what it is called in English.
    bool clickTool(const char* text);
    bool pressKey(const char* label);
    bool releaseKey(const char* label);

    /// The newest message.
    bool expectMessage(int level, const QString& text);
    bool expectNoMessage();

private:
    void settle();
    void markMessages();

    Options options;
    std::unique_ptr<Session> session;
    std::optional<Hand> atWork;
    QImage indicatorsAtStart;
    QString reason;
    int messagesRead = 0;
};

/// One step of the tour and the picture of what it leaves.
struct TourStep
{
    QString name; ///< of the picture
    QString title;
    std::function<bool(TourStage& stage)> perform;
};

/// Row of a chapter's table.
inline TourStep step(const char* name, const char* title, bool (*perform)(TourStage& stage))
{
    return {latin(name), latin(title), perform};
}

/// A part of the tour, in a file of its own. But for the first one, it begins with the pendant
/// open, whoever is logged in, and with the plugin's page in view; it leaves the pendant like that.
using TourChapter = std::vector<TourStep>;

} // namespace pendant
