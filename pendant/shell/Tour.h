#pragma once

#include "TourStage.h"

#include <functional>

namespace pendant {

/// The pendant shows itself: performs the main jobs of an operator through the widgets, leaves a
/// numbered picture of each step, and stops at the first step that does not go as it should.
class Tour
{
public:
    /// The options must have their paths filled, the folder of the tour among them.
    explicit Tour(const Options& options);

    /// Performs all steps and says each in a line. Returns what failed; empty when nothing did.
    QString run(const std::function<void(const QString&)>& say);

private:
    bool perform(const TourStep& step, int number);

    QString folder;
    TourStage stage;
};

} // namespace pendant
