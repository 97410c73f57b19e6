#include "Languages.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibraryInfo>
#include <QTranslator>

#include <algorithm>

// It lies in a static library, whose resources do not register themselves.
static void registerCatalogue()
{
    Q_INIT_RESOURCE(shell_language);
}

namespace pendant {

/// The text is a copy: the resource of a library goes with it, whoever may still read.
struct Languages::Catalogue
{
    QString file;
    bool ofPlugin;
    QByteArray text;
    QTranslator translator;

    bool load()
    {
        QFile source(file);
        if (!source.open(QIODevice::ReadOnly))
            return false;
        text = source.readAll();
        return translator.load(reinterpret_cast<const uchar*>(text.constData()), text.size());
    }
};

Languages::Languages() = default;

Languages::~Languages()
{
    choose(Language::English);
}

void Languages::choose(Language chosen)
{
    catalogues.clear();
    language = chosen;
    if (chosen == Language::English)
        return;
    registerCatalogue();
    // Of the dialogs that Qt itself brings (Debian: qttranslations5-l10n); without it they are
    // English.
    install(QLibraryInfo::location(QLibraryInfo::TranslationsPath) +
                QStringLiteral("/qtbase_zh_CN.qm"),
            false);
    install(QStringLiteral(":/shell/language/pendant_cn.qm"), false);
}

void Languages::addPlugin(const QString& name)
{
    if (language == Language::Chinese)
        install(QStringLiteral(":/%1/language/%1_cn.qm").arg(name), true);
}

void Languages::dropPlugins()
{
    const auto gone = std::remove_if(catalogues.begin(), catalogues.end(),
                                     [](const auto& each) { return each->ofPlugin; });
    catalogues.erase(gone, catalogues.end());
}

void Languages::install(const QString& file, bool ofPlugin)
{
    auto catalogue = std::make_unique<Catalogue>();
    catalogue->file = file;
    catalogue->ofPlugin = ofPlugin;
    // The translator removes itself at its end.
    if (catalogue->load() && QCoreApplication::installTranslator(&catalogue->translator))
        catalogues.push_back(std::move(catalogue));
}

} // namespace pendant
