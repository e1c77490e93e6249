// SPDX-License-Identifier: MIT
#include "platform/write_witness.h"

#include <vector>

namespace sylvomex {
namespace {

std::vector<WriteWitness*>& Witnesses() {
  thread_local std::vector<WriteWitness*> witnesses;
  return witnesses;
}

}  // namespace

WriteWitness::WriteWitness() { Witnesses().push_back(this); }

WriteWitness::~WriteWitness() { std::erase(Witnesses(), this); }

void Tell_Change(const FilePath& file, bool appends) {
  std::vector<WriteWitness*>& witnesses = Witnesses();
  for (std::size_t i = witnesses.size(); i-- > 0;) witnesses[i]->Will_Change(file, appends);
}

void Tell_Append(const FilePath& file, std::string_view text) {
  for (WriteWitness* witness : Witnesses()) witness->Has_Appended(file, text);
}

}  // namespace sylvomex
