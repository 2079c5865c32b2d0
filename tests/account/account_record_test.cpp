#include "account/account_record.h"

#include <gtest/gtest.h>

#include <string>

#include "text/runtime_error.h"

namespace tallyo {
namespace {

// The pairs as "key:value;" and "error" where the walk ends in one.
std::string Walk(std::string_view text) {
  AccountRecord record(text);
  std::string walk;
  try {
    while (const auto pair = record.Next()) {
      walk += std::string(pair->key) + ":" + std::string(pair->value) + ";";
    }
  } catch (const RuntimeError&) {
    walk += "error";
  }
  return walk;
}

TEST(AccountRecord, IsReadPairByPairWithoutTrimming) {
  const struct {
    const char* text;
    const char* walk;
  } rows[] = {
      {"", ""},
      {"a=1,b=2\n", "a:1;b:2;"},
      {"a=1,b=2", "a:1;b:;"},
      {"a=1,b=23", "a:1;b:2;"},
      {"a=1,b=2\r\n", "a:1;b:2\r;"},
      {"a=1,b=2\n\n", "a:1;b:2\n;"},
      {"a=", "a:;"},
      {"a=,b=\n", "a:;b:;"},
      {"=1,=2\n", ":1;:2;"},
      {" a = 1 ,A=2 \n", " a : 1 ;A:2 ;"},
      {"a=1=2,b=3\n", "a:1=2;b:3;"},
      {"a=1,a=2\n", "a:1;a:2;"},
      {"x,a=1\n", "x,a:1;"},
      {"a=1,,b=2\n", "a:1;,b:2;"},
      {"a=1,\n", "a:1;error"},
      {"a=1,rest", "a:1;error"},
      {"<html>", "error"},
      {"\n", "error"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Walk(row.text), row.walk) << row.text;
  }
}

}  // namespace
}  // namespace tallyo
