#include "Tour.h"

#include "TourChapters.h"

#include <QDir>

namespace pendant {

namespace {

TourChapter wholeStory()
{
    TourChapter story;
    for (const auto chapter :
         {weldSetupChapter, weldIoChapter, weldDataChapter, pendantChapter, programsChapter}) {
        for (TourStep& step : chapter())
            story.push_back(std::move(step));
    }
    return story;
}

} // namespace

Tour::Tour(const Options& options)
    : folder(options.tourFolder)
    , stage(options)
{}

QString Tour::run(const std::function<void(const QString&)>& say)
{
    if (!QDir().mkpath(folder))
        return QStringLiteral("cannot make the folder %1").arg(folder);
    int number = 0;
    for (const TourStep& step : wholeStory()) {
        const bool good = perform(step, ++number);
        say(QStringLiteral("%1 %2 %3\n")
                .arg(number, 2)
                .arg(good ? latin("ok  ") : latin("FAIL"), step.title));
        if (!good)
            return QStringLiteral("step %1 (%2): %3").arg(number).arg(step.name, stage.trouble());
    }
    return {};
}

// A step that failed leaves its picture too.
bool Tour::perform(const TourStep& step, int number)
{
    const bool good = step.perform(stage);
    const QString file = QStringLiteral("%1/%2-%3.png")
                             .arg(folder)
                             .arg(number, 2, 10, QLatin1Char('0'))
                             .arg(step.name);
    return (!stage.isOpen() || stage.takePicture(file)) && good;
}

} // namespace pendant
