// SPDX-License-Identifier: MIT
#pragma once

#include <QAudioSink>
#include <QBuffer>
#include <QByteArray>
#include <QObject>
#include <deque>
#include <memory>

namespace sylvomex {

/// A sine tone as signed 16-bit mono samples, 44,100 a second, with soft ends.
/// frequency: hertz; duration: milliseconds, at most 5000. Empty for a tone that cannot be
/// heard (37 Hz to 20 kHz) or has no length.
QByteArray Tone_Samples(int frequency, int duration);

/// Plays tones one after the other without keeping the caller waiting. Silent on a machine
/// without a sound device.
class TonePlayer : public QObject {
 public:
  /// A tone that would have to wait behind many others is left out.
  void Play(int frequency, int duration);

 private:
  bool Open_Device();
  void Play_Next();

  std::deque<QByteArray> waiting_;
  QByteArray playing_;
  std::unique_ptr<QBuffer> samples_;
  std::unique_ptr<QAudioSink> sink_;
  bool device_sought_ = false;
};

}  // namespace sylvomex
