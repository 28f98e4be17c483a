// Walks a wide format once. Text conversions are done here; each numeric conversion
// is handed alone, with a narrow format of its own, to snprintf.
#include "wide_format.h"

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <optional>
#include <string_view>

#include "utf8.h"

namespace korva::api {
namespace {

enum class Length { None, Char, Short, Long, LongLong, IntMax, Size, PtrDiff, LongDouble };

struct Conversion {
  bool leftAlign = false;
  bool plusSign = false;
  bool spaceSign = false;
  bool zeroPad = false;
  bool alternate = false;
  int width = 0;
  int precision = -1;  // -1: none given
  Length length = Length::None;
  wchar_t kind = 0;
};

// Owns a copy of the caller's va_list so that the caller's stays usable.
class Arguments {
 public:
  explicit Arguments(va_list args) { va_copy(list_, args); }
  ~Arguments() { va_end(list_); }
  Arguments(const Arguments&) = delete;
  Arguments& operator=(const Arguments&) = delete;

  int nextInt() { return va_arg(list_, int); }
  long nextLong() { return va_arg(list_, long); }
  long long nextLongLong() { return va_arg(list_, long long); }
  std::intmax_t nextIntMax() { return va_arg(list_, std::intmax_t); }
  std::size_t nextSize() { return va_arg(list_, std::size_t); }
  std::ptrdiff_t nextPtrDiff() { return va_arg(list_, std::ptrdiff_t); }
  double nextDouble() { return va_arg(list_, double); }
  long double nextLongDouble() { return va_arg(list_, long double); }
  const void* nextPointer() { return va_arg(list_, const void*); }
  wint_t nextWideChar() { return va_arg(list_, wint_t); }

 private:
  va_list list_;
};

bool isFlag(wchar_t c) {
  return c == L'-' || c == L'+' || c == L' ' || c == L'0' || c == L'#';
}

// Reads digits or '*' at format[i]; nothing when neither is there.
std::optional<int> readCount(const wchar_t* format, std::size_t& i, Arguments& args) {
  if (format[i] == L'*') {
    ++i;
    return args.nextInt();
  }
  if (format[i] < L'0' || format[i] > L'9') return std::nullopt;
  int value = 0;
  while (format[i] >= L'0' && format[i] <= L'9') {
    if (value < 100000000) value = value * 10 + static_cast<int>(format[i] - L'0');
    ++i;
  }
  return value;
}

Length readLength(const wchar_t* format, std::size_t& i) {
  switch (format[i]) {
    case L'h':
      ++i;
      if (format[i] == L'h') return ++i, Length::Char;
      return Length::Short;
    case L'l':
      ++i;
      if (format[i] == L'l') return ++i, Length::LongLong;
      return Length::Long;
    case L'j':
      return ++i, Length::IntMax;
    case L'z':
      return ++i, Length::Size;
    case L't':
      return ++i, Length::PtrDiff;
    case L'L':
      return ++i, Length::LongDouble;
    default:
      return Length::None;
  }
}

void appendPadded(std::wstring& out, std::wstring_view text, const Conversion& conversion) {
  const std::size_t width = conversion.width > 0 ? static_cast<std::size_t>(conversion.width) : 0;
  const std::size_t fill = width > text.size() ? width - text.size() : 0;
  if (!conversion.leftAlign) out.append(fill, L' ');
  out.append(text);
  if (conversion.leftAlign) out.append(fill, L' ');
}

std::string narrowFormatOf(const Conversion& conversion, const char* lengthText, char kind) {
  std::string text = "%";
  if (conversion.leftAlign) text += '-';
  if (conversion.plusSign) text += '+';
  if (conversion.spaceSign) text += ' ';
  if (conversion.zeroPad) text += '0';
  if (conversion.alternate) text += '#';
  if (conversion.width > 0) text += std::to_string(conversion.width);
  if (conversion.precision >= 0) text += "." + std::to_string(conversion.precision);
  text += lengthText;
  text += kind;
  return text;
}

template <typename Value>
void appendNumber(std::wstring& out, const std::string& narrowFormat, Value value) {
  char small[64];
  // The format is built here from a checked conversion, never from caller text.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  const int size = std::snprintf(small, sizeof small, narrowFormat.c_str(), value);
  if (size < 0) return;
  std::string text;
  if (static_cast<std::size_t>(size) < sizeof small) {
    text.assign(small, static_cast<std::size_t>(size));
  } else {
    text.resize(static_cast<std::size_t>(size) + 1);
    std::snprintf(text.data(), text.size(), narrowFormat.c_str(), value);
    text.resize(static_cast<std::size_t>(size));
  }
#pragma GCC diagnostic pop
  // The C library writes only ASCII for numbers.
  out.append(text.begin(), text.end());
}

void appendInteger(std::wstring& out, const Conversion& conversion, Arguments& args) {
  const char kind = static_cast<char>(conversion.kind);
  switch (conversion.length) {
    case Length::Char:
      return appendNumber(out, narrowFormatOf(conversion, "hh", kind), args.nextInt());
    case Length::Short:
      return appendNumber(out, narrowFormatOf(conversion, "h", kind), args.nextInt());
    case Length::Long:
      return appendNumber(out, narrowFormatOf(conversion, "l", kind), args.nextLong());
    case Length::LongLong:
      return appendNumber(out, narrowFormatOf(conversion, "ll", kind), args.nextLongLong());
    case Length::IntMax:
      return appendNumber(out, narrowFormatOf(conversion, "j", kind), args.nextIntMax());
    case Length::Size:
      return appendNumber(out, narrowFormatOf(conversion, "z", kind), args.nextSize());
    case Length::PtrDiff:
      return appendNumber(out, narrowFormatOf(conversion, "t", kind), args.nextPtrDiff());
    case Length::None:
    case Length::LongDouble:
      return appendNumber(out, narrowFormatOf(conversion, "", kind), args.nextInt());
  }
}

void appendFloating(std::wstring& out, const Conversion& conversion, Arguments& args) {
  const char kind = static_cast<char>(conversion.kind);
  if (conversion.length == Length::LongDouble) {
    appendNumber(out, narrowFormatOf(conversion, "L", kind), args.nextLongDouble());
  } else {
    appendNumber(out, narrowFormatOf(conversion, "", kind), args.nextDouble());
  }
}

void appendString(std::wstring& out, const Conversion& conversion, bool wide, Arguments& args) {
  const void* pointer = args.nextPointer();
  std::wstring converted;
  std::wstring_view text;
  if (pointer == nullptr) {
    text = L"(null)";
  } else if (wide) {
    text = static_cast<const wchar_t*>(pointer);
  } else {
    converted = fromUtf8(static_cast<const char*>(pointer));
    text = converted;
  }
  if (conversion.precision >= 0 && text.size() > static_cast<std::size_t>(conversion.precision)) {
    text = text.substr(0, static_cast<std::size_t>(conversion.precision));
  }
  appendPadded(out, text, conversion);
}

void appendCharacter(std::wstring& out, const Conversion& conversion, bool wide, Arguments& args) {
  wchar_t c = 0;
  if (wide) {
    c = static_cast<wchar_t>(args.nextWideChar());
  } else {
    c = static_cast<wchar_t>(static_cast<unsigned char>(args.nextInt()));
  }
  appendPadded(out, std::wstring_view(&c, 1), conversion);
}

// Narrow text arguments: the h length in a wide format, or the upper-case S and C.
bool takesNarrowText(const Conversion& conversion) {
  return conversion.length == Length::Short || conversion.length == Length::Char ||
         conversion.kind == L'S' || conversion.kind == L'C';
}

}  // namespace

std::wstring formatWide(const wchar_t* format, va_list list) {
  std::wstring out;
  Arguments args(list);
  std::size_t i = 0;
  while (format[i] != L'\0') {
    if (format[i] != L'%') {
      out += format[i++];
      continue;
    }
    const std::size_t start = i++;
    Conversion conversion;
    for (; isFlag(format[i]); ++i) {
      conversion.leftAlign |= format[i] == L'-';
      conversion.plusSign |= format[i] == L'+';
      conversion.spaceSign |= format[i] == L' ';
      conversion.zeroPad |= format[i] == L'0';
      conversion.alternate |= format[i] == L'#';
    }
    if (const std::optional<int> width = readCount(format, i, args)) {
      // A negative width from '*' asks for left alignment.
      conversion.leftAlign |= *width < 0;
      conversion.width = *width == INT_MIN ? INT_MAX : std::abs(*width);
    }
    if (format[i] == L'.') {
      ++i;
      // "." alone is precision 0; a negative one from '*' counts as none.
      const int precision = readCount(format, i, args).value_or(0);
      conversion.precision = precision < 0 ? -1 : precision;
    }
    conversion.length = readLength(format, i);
    conversion.kind = format[i];
    if (conversion.kind == L'\0') {
      out.append(format + start, i - start);
      break;
    }
    ++i;
    switch (conversion.kind) {
      case L'%':
        out += L'%';
        break;
      case L'd':
      case L'i':
      case L'u':
      case L'o':
      case L'x':
      case L'X':
        appendInteger(out, conversion, args);
        break;
      case L'f':
      case L'F':
      case L'e':
      case L'E':
      case L'g':
      case L'G':
      case L'a':
      case L'A':
        appendFloating(out, conversion, args);
        break;
      case L'p':
        conversion.length = Length::None;
        appendNumber(out, narrowFormatOf(conversion, "", 'p'), args.nextPointer());
        break;
      case L's':
      case L'S':
        appendString(out, conversion, !takesNarrowText(conversion), args);
        break;
      case L'c':
      case L'C':
        appendCharacter(out, conversion, !takesNarrowText(conversion), args);
        break;
      case L'n':
        // Writing back through a caller's pointer is not offered; the argument is skipped.
        args.nextPointer();
        break;
      default:
        out.append(format + start, i - start);
        break;
    }
  }
  return out;
}

}  // namespace korva::api
