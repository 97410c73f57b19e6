#pragma once

#include <QString>

#include <memory>
#include <vector>

namespace pendant {

enum class Language { English, Chinese };

/// The catalogues that are installed in the application: the shell's own, and those that the
/// plugins bring with their libraries. English, in which everything is written, needs none.
class Languages
{
public:
    Languages();
    /// Removes every catalogue.
    ~Languages();

    Language current() const { return language; }
    /// Installs the shell's catalogue of the language, and removes those of the one before with
    /// all of the plugins'. The plugins must be gone.
    void choose(Language chosen);
    /// Installs the catalogue that the plugin of the registered name brings for the language, if
    /// it has one: to be called while its library is loaded, before the plugin is made.
    void addPlugin(const QString& name);
    /// Removes the catalogues of the plugins.
    void dropPlugins();

private:
    struct Catalogue;

    void install(const QString& file, bool ofPlugin);

    Language language = Language::English;
    std::vector<std::unique_ptr<Catalogue>> catalogues;
};

} // namespace pendant
