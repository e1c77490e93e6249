// SPDX-License-Identifier: MIT
#include "session/start_advice.h"

#include <gtest/gtest.h>

#include "support/temporary_folder.h"

namespace sylvomex {
namespace {

TEST(StartAdvice, WithoutADataFolderNamesItAndTheTwoWaysOn) {
  const TemporaryFolder folder;
  const std::string advice = Start_Advice(folder.Drives());
  for (const std::string& part :
       {(folder.Path() / "c/data").string(), std::string("--root"), std::string("./run demo")}) {
    EXPECT_NE(advice.find(part), std::string::npos) << part << " in " << advice;
  }
}

TEST(StartAdvice, WithADataFolderThereIsNone) {
  const TemporaryFolder folder;
  folder.Make_Folder("C/Data");
  EXPECT_EQ(Start_Advice(folder.Drives()), "");
}

}  // namespace
}  // namespace sylvomex
