#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>

/// What all harnesses share. One is a program that libFuzzer feeds, or Replay.cpp; it starts an
/// application without a display and takes a warning of Qt or of the code for a finding.
namespace Fuzz {

/// Ends the process unless the property holds: a finding.
void demand(bool holds, const char* property);

/// Warnings that begin with the text are none from now on. For those that are the right answer.
void allowWarning(const char* start);

/// The bytes as UTF-8; as UTF-16 behind a byte 0xff, so that every QString is within reach.
QString text(const uint8_t* data, size_t size);

/// The bytes as a JSON object or array; undefined when they are none.
QJsonValue json(const uint8_t* data, size_t size);

/// Lets zero timers and posted events run, and what they start, a few times over.
void settle();

/// Keys and texts that the harness knows, for JsonMutator.cpp to put into its inputs.
QStringList words();

} // namespace Fuzz

/// The body of a harness.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);
/// Starts the application; called once, before the first input.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
