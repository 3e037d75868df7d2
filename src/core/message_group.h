// Settings and running state of messages.
#pragma once

#include <cstdio>

namespace quilla {

inline constexpr int kFileNameLength = 256;
inline constexpr int kCustomMessageLength = 80;

enum ErrorDevice : int { kErrorConsole = 0, kErrorFile = 1, kErrorAppend = 2 };
// Values of messageUnit.
enum MessageUnit : int { kUnitNone = 0, kUnitStream = 1, kUnitConsole = 6, kUnitFile = 17 };
enum ProtocolMode : int { kProtocolOff = 0, kProtocolOn = 1, kProtocolFile = 2 };

// Process lifetime: settable before a plot is open, never reset by QUIINI.
struct MessageSetup {
  int errorDevice = kErrorConsole;
  bool errorFileNameGiven = false;
  char errorFileName[kFileNameLength + 1] = "";
};

// Open streams and the text of messages above 100; they outlive a run until it closes them.
struct MessageStreams {
  std::FILE* messageStream = nullptr; // null: standard output
  std::FILE* errorFileStream = nullptr;
  bool errorFileOpen = false;
  char customMessage[kCustomMessageLength + 1] = "";
};

// Run lifetime.
struct MessageGroup {
  int messageUnit = kUnitConsole;
  bool warningsOn = true;
  int protocolMode = kProtocolOn;
  bool dataCheckOn = true;
};

} // namespace quilla
