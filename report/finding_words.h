#pragma once

#include <string>

#include "report/finding_texts.h"
#include "report/run.h"

namespace tarvik::report {

/// The echoes that the words about a rung speak of: those to the gateway tried last, otherwise to the target.
const EchoSeries& EchoesOf(const Facts& facts, Rung rung);

/// The three-digit code at the start of the reply's last line that is not empty; 0 if absent.
int ReplyCode(const std::wstring& reply);

/// True when a line of the reply begins with the code.
bool HasReply(const std::wstring& reply, int code);

/// The first number of the dotted address that Windows misreads or rejects because a leading zero makes it
/// octal; otherwise empty.
std::wstring PaddedNumber(const std::wstring& address);

/// The name, cut to 20 columns with "..." at the end.
std::wstring Shortened(const std::wstring& name);

/// The words with every "%letter" replaced by a fact of the run. Names that can be of any length are
/// shortened.
std::wstring WithFacts(const wchar_t* words, const Run& run, Rung rung, AnswerLanguage language);

}  // namespace tarvik::report
