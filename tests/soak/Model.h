#pragma once

#include "Controller.h"
#include "Languages.h"
#include "Theme.h"
#include "Witness.h"

#include <QJsonValue>
#include <QMap>

#include <array>
#include <optional>

namespace soak {

/// The hardware keys of the plugin, in the order in which they stand in the two columns.
enum class Key { WorkMode, Wiring, RedLight, ProtectGas, RetractWire };
constexpr int KeyCount = 5;

/// What a key is called in English.
const char* labelOf(Key key);

/// Texts of a page that tells how a save went. Both are in English.
struct SaveTexts
{
    const char* context;
    const char* saved;
    const char* failed;
};

/// What the pendant, its plugin and the controller should be, and what one step should make them
/// say: by what the guides tell, and by nothing that is on the screen.
///
/// An event is told to the model with the state that held when it happened.
class Model
{
public:
    // The state.
    int level = 0;
    bool connected = true;
    bool powered = false;
    pendant::Faults faults;
    pendant::Language language = pendant::Language::English;
    pendant::Theme::Shade shade = pendant::Theme::Shade::Light;
    bool feeding = false;
    bool retracting = false;
    bool redLight = false;
    bool virtualWelding = false;
    bool welding = false;      ///< the device is enabled
    bool showsVirtual = false; ///< the picture of the work mode
    std::array<bool, KeyCount> held{};
    QMap<QString, QJsonValue> records;  ///< as the controller holds them
    QMap<QString, QByteArray> programs; ///< likewise

    // What the present step should bring.
    QVector<Told> messages;
    QStringList errorLines;      ///< each is a part of one
    QStringList allowedWarnings; ///< beginnings

    void beginStep();
    /// What the plugin warns of while records and lists are not read as they are.
    void allowForUntrueReads();

    bool mayOperate() const { return level >= 3; }
    /// What is sent comes to the controller.
    bool arrives() const { return connected && !faults.noReply; }
    /// The controller's records and lists are read as they are.
    bool readsTruly() const;

    // Events.
    void opened();
    void press(Key key);
    void release(Key key);
    void releaseKeys();
    void connection(bool up);
    /// The plugin was made anew.
    void pluginMade();
    /// A save whose reply is read strictly was sent; the controller carried it out with this code.
    void saved(const QString& command, int code, const SaveTexts& texts);
    /// The save of the mapping, whose reader is another.
    void savedMapping(int code);
    void tell(int severity, const QString& text) { messages.append({severity, text}); }

    /// What the strict reader makes of the reply to a command with this outcome; nothing when it
    /// is no answer.
    std::optional<int> strictResult(int code) const;
    /// The code of a command that the controller refuses for this reason alone.
    int codeOf(int reason) const { return faults.returnCode != 0 ? faults.returnCode : reason; }

    static constexpr int Information = 0;
    static constexpr int Warning = 1;
    static constexpr int Error = 2;

private:
    bool isAnswered() const;
    bool readsFlag(bool flag) const;
    void report(const QString& command, int code, const SaveTexts& texts);
    bool operates(Key key, bool pressed);
    void moveWire(Key key, bool on);
    void switchMode();
};

} // namespace soak
