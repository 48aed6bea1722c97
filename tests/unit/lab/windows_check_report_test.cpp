#include <gtest/gtest.h>

#include "lab/windows_check/html_report.h"

namespace tarvik::check {
namespace {

std::string Masked(const std::string& text) {
  Mask mask;
  mask.AddWord("jo", "[user]");
  mask.AddWord("desk", "[computer]");
  mask.AddWord("desk.example.com", "[full name]");
  mask.AddWord("x", "[one letter]");
  return mask.Apply(text);
}

TEST(WindowsCheckMask, Replaces_names_in_any_case_as_whole_words) {
  EXPECT_EQ(Masked("C:\\Users\\Jo\\AppData, \\\\DESK\\c$, jo_1, jo"),
            "C:\\Users\\[user]\\AppData, \\\\[computer]\\c$, [user]_1, [user]");
  EXPECT_EQ(Masked("john enjoy jo1 x"), "john enjoy jo1 x");
}

TEST(WindowsCheckMask, Replaces_the_folder_of_every_user) {
  EXPECT_EQ(Masked("App=c:\\users\\Anna Berg\\Tarvik.exe|C:\\Users\\Anna|Name"),
            "App=c:\\users\\[user]\\Tarvik.exe|C:\\Users\\[user]|Name");
}

TEST(WindowsCheckMask, Replaces_the_longest_name_first) {
  EXPECT_EQ(Masked("desk.example.com"), "[full name]");
}

TEST(WindowsCheckMask, A_letter_of_another_script_is_a_letter) {
  EXPECT_EQ(Masked("\xC3\xA9jo jo\xC3\xA9"), "\xC3\xA9jo jo\xC3\xA9");
}

TEST(WindowsCheckMask, Replaces_MAC_addresses) {
  EXPECT_EQ(Masked("00-1A-2b-3C-4D-5E and 00:1a:2b:3c:4d:5e."), "[MAC] and [MAC].");
  EXPECT_EQ(Masked("00-1A-2B-3C-4D 00-1A:2B-3C-4D-5E"), "00-1A-2B-3C-4D 00-1A:2B-3C-4D-5E");
}

TEST(WindowsCheckMask, Replaces_public_addresses) {
  EXPECT_EQ(Masked("8.8.8.8:21, 172.32.0.1/16 and 100.1.2.3."),
            "[public address]:21, [public address]/16 and [public address].");
}

TEST(WindowsCheckMask, Keeps_addresses_that_say_nothing_about_the_user) {
  const std::string text =
      "10.1.2.3 172.16.0.1 172.31.0.1 192.168.0.1 127.0.0.1 169.254.1.2 0.0.0.0 255.255.255.0 224.0.0.1 "
      "192.0.2.1 198.51.100.2 203.0.113.3";
  EXPECT_EQ(Masked(text), text);
}

TEST(WindowsCheckMask, Keeps_numbers_that_are_not_addresses) {
  const std::string text = "version 8.8.19041.1 8.8.8.8.8 8.8.8 v8.8.8.8 300.1.1.1";
  EXPECT_EQ(Masked(text), text);
}

std::string Html(const Item& item) {
  Mask mask;
  mask.AddWord("secret", "[masked]");
  return HtmlReport({item}, mask, "Tarvik 8.8.8.8");
}

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(WindowsCheckReport, Escapes_and_masks_every_text) {
  const std::string html =
      Html({"a.b", "<title> secret", Verdict::Fail, "secret \"details\" & </script>\n\x01", {}});
  EXPECT_FALSE(Contains(html, "secret"));
  EXPECT_TRUE(Contains(html, "Tarvik 8.8.8.8"));
  EXPECT_TRUE(Contains(html, "&lt;title&gt; [masked]"));
  EXPECT_TRUE(Contains(html, "[masked] &quot;details&quot; &amp; &lt;/script&gt;"));
  EXPECT_TRUE(Contains(html, R"({"id":"a.b","verdict":"fail","title":"\u003ctitle> [masked]",)"
                             R"("details":"[masked] \"details\" & \u003c/script>\n\u0001"})"));
}

TEST(WindowsCheckReport, Contains_pictures_with_their_type) {
  EXPECT_TRUE(Contains(Html({"a.b", "", Verdict::Pass, "", "BM1"}), "data:image/bmp;base64,Qk0x\""));
  EXPECT_TRUE(Contains(Html({"a.b", "", Verdict::Pass, "", "\x89PNG"}), "data:image/png;base64,iVBORw==\""));
  EXPECT_FALSE(Contains(Html({"a.b", "", Verdict::Pass, "", ""}), "<img"));
}

TEST(WindowsCheckReport, Counts_the_verdicts_and_groups_by_section) {
  Report report;
  report.Expect("one.a", "", true);
  report.Expect("one.b", "", false);
  report.Observe("two.c", "", "");
  const std::string html = HtmlReport(report.Items(), {}, "");
  EXPECT_TRUE(Contains(html, "1 pass, 1 fail, 1 observed"));
  EXPECT_EQ(html.find("<h2>one</h2>"), html.rfind("<h2>one</h2>"));
  EXPECT_TRUE(Contains(html, "<h2>two</h2>"));
}

TEST(WindowsCheckReport, Attaches_a_picture_to_the_last_item_with_the_id) {
  Report report;
  report.Observe("a.b", "first", "");
  report.Observe("a.b", "second", "");
  report.Attach("a.b", "picture");
  report.Attach("a.unknown", "picture");
  EXPECT_EQ(report.Items().at(0).pictureBmpOrPng, "");
  EXPECT_EQ(report.Items().at(1).pictureBmpOrPng, "picture");
}

}  // namespace
}  // namespace tarvik::check
