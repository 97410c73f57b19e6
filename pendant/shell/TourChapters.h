#pragma once

#include "TourStage.h"

namespace pendant {

/// Opens the pendant; the weld setup, the hardware keys, and what a user of too low a level may
/// not.
TourChapter weldSetupChapter();
/// The process signals are mapped to ports and registers, and watched at the controller.
TourChapter weldIoChapter();
/// A schedule and a matching record are set, a curve is measured.
TourChapter weldDataChapter();
/// What the pendant has beside: its messages, faults, plugins and users.
TourChapter pendantChapter();
/// A robot program is written, changed, saved and found again.
TourChapter programsChapter();

} // namespace pendant
