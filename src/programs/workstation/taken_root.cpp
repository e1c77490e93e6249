// SPDX-License-Identifier: MIT
#include "programs/workstation/taken_root.h"

#include <iostream>
#include <utility>

#include "desktop/start_questions.h"
#include "platform/run_time_error.h"

namespace sylvomex {
namespace {

/// False when there is no place for the pictures of a desktop that shares its root.
bool Becomes_Guest(TakenRoot& taken, bool asks) {
  try {
    taken.guest.emplace(taken.root, asks ? GuestAccess::ReadsOnly : GuestAccess::ReadsAndWrites);
    return true;
  } catch (const RunTimeError& failure) {
    std::cerr << "the start-up failed: " << failure.what() << '\n';
    if (asks) Tell_Of_Failed_Start(failure);
    return false;
  }
}

}  // namespace

bool Take_Root(TakenRoot& taken, std::filesystem::path root, bool asks) {
  taken.root = std::move(root);
  for (;;) {
    taken.lock = std::make_unique<RootLock>(taken.root);
    if (!taken.lock->Is_In_Use()) return true;
    std::cerr << taken.root.string() << " is in use by " << taken.lock->Holder() << '\n';
    const UsedRootAnswer answer =
        asks ? Ask_About_Used_Root(taken.root, taken.lock->Holder()) : UsedRootAnswer::OnlyShow;
    if (answer == UsedRootAnswer::Quit) return false;
    if (answer == UsedRootAnswer::OnlyShow) return Becomes_Guest(taken, asks);
    if (auto another = Ask_For_Root()) taken.root = std::move(*another);
  }
}

}  // namespace sylvomex
