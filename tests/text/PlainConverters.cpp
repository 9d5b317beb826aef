#include "text/PlainConverters.h"

#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

#include "text/jaconv_tables.h"
#include "zqxml/convert.h"

namespace {

// A text that is read a byte at a time; behind its end there are zeros.
struct Reader {
  const std::string& text;
  size_t place = 0;

  bool atEnd() const { return place >= text.size(); }
  int at(size_t index) const {
    return index < text.size() ? static_cast<unsigned char>(text[index]) : 0;
  }
  int ahead(size_t distance = 0) const { return at(place + distance); }
  int take() { return at(place++); }
};

std::string bytes(std::initializer_list<int> values) {
  std::string result;
  for (const int value : values) {
    result += static_cast<char>(value);
  }
  return result;
}

bool in(int byte, int first, int last) {
  return byte >= first && byte <= last;
}
bool isHigh(int byte) {
  return in(byte, 0xA1, 0xFE);
}
bool isShiftLead(int byte) {
  return in(byte, 0x81, 0x9F) || in(byte, 0xE0, 0xEF);
}

// Row and cell of a character of Shift-JIS, counted from 0, by counting its trails without 0x7F.
std::pair<int, int> rowAndCell(int lead, int trail) {
  const int leads = lead - (lead < 0xA0 ? 0x81 : 0xC1);
  const int trails = trail - 0x40 - (trail > 0x7F ? 1 : 0);
  return {leads * 2 + trails / 94, trails % 94};
}

std::pair<int, int> leadAndTrail(int row, int cell) {
  const int lead = row / 2 + 0x81;
  const int trail = row % 2 * 94 + cell + 0x40;
  return {lead + (lead > 0x9F ? 0x40 : 0), trail + (trail >= 0x7F ? 1 : 0)};
}

std::string shiftToEuc(const std::string& text) {
  std::string result;
  for (Reader reader{text}; !reader.atEnd();) {
    const int byte = reader.take();
    if (isShiftLead(byte) && !reader.atEnd()) {
      const int trail = reader.take();
      // 0x7F counts as the byte behind it.
      const auto [row, cell] = rowAndCell(byte, trail == 0x7F ? 0x80 : trail);
      result += in(trail, 0x40, 0xFC) ? bytes({row + 0xA1, cell + 0xA1}) : bytes({byte, trail});
    } else if (in(byte, 0xA1, 0xDF)) {
      result += bytes({0x8E, byte});
    } else {
      result += bytes({byte});
    }
  }
  return result;
}

std::string eucToShift(const std::string& text) {
  std::string result;
  for (Reader reader{text}; !reader.atEnd();) {
    const int byte = reader.take();
    if (byte == 0x8F && isHigh(reader.ahead()) && isHigh(reader.ahead(1))) {
      result += bytes({byte, reader.ahead(), reader.ahead(1)});
      reader.place += 2;
    } else if ((isHigh(byte) || byte == 0x8E) && !reader.atEnd()) {
      const int trail = reader.take();
      if (isHigh(byte) && isHigh(trail)) {
        const auto [lead, second] = leadAndTrail(byte - 0xA1, trail - 0xA1);
        result += bytes({lead, second});
      } else if (byte == 0x8E && in(trail, 0xA1, 0xDF)) {
        result += bytes({trail});
      } else {
        result += bytes({byte, trail});
      }
    } else {
      result += bytes({byte});
    }
  }
  return result;
}

// What one character gives: JIS text, and the mode that it needs ('1', '2', or '-' for any).
struct Piece {
  char mode;
  std::string text;
};

std::string joined(const std::vector<Piece>& pieces) {
  std::string result;
  char mode = '1';
  const auto enter = [&](char wanted) {
    if (wanted != '-' && wanted != mode) {
      result += wanted == '2' ? "\x1B$B" : "\x1B(J";
      mode = wanted;
    }
  };
  for (const Piece& piece : pieces) {
    enter(piece.mode);
    result += piece.text;
  }
  enter('1');
  return result;
}

Piece wide(int row, int cell) {
  return {'2', bytes({row + 0x21, cell + 0x21})};
}

Piece wideKatakana(int byte) {
  const size_t index = 2 * static_cast<size_t>(byte - 0xA1);
  const auto [row, cell] = rowAndCell(fullWidthKatakana[index], fullWidthKatakana[index + 1]);
  return wide(row, cell);
}

std::string shiftToJis(const std::string& text) {
  std::vector<Piece> pieces;
  for (Reader reader{text}; !reader.atEnd();) {
    const int byte = reader.take();
    if (isShiftLead(byte)) {
      if (reader.atEnd()) {
        pieces.push_back({'-', bytes({byte})});
        continue;
      }
      const int trail = reader.take();
      const auto [row, cell] = rowAndCell(byte, trail == 0x7F ? 0x80 : trail);
      pieces.push_back(in(trail, 0x40, 0xFC) ? wide(row, cell) : Piece{'-', bytes({byte, trail})});
    } else if (in(byte, 0xA1, 0xDF)) {
      pieces.push_back(wideKatakana(byte));
    } else {
      pieces.push_back({'1', bytes({byte})});
    }
  }
  return joined(pieces);
}

std::string eucToJis(const std::string& text) {
  std::vector<Piece> pieces;
  for (Reader reader{text}; !reader.atEnd();) {
    const int byte = reader.take();
    if (byte == 0x8F && isHigh(reader.ahead()) && isHigh(reader.ahead(1))) {
      pieces.push_back({'1', bytes({byte, reader.ahead(), reader.ahead(1)})});
      reader.place += 2;
    } else if (isHigh(byte) || byte == 0x8E) {
      if (reader.atEnd()) {
        pieces.push_back({'-', bytes({byte})});
        continue;
      }
      const int trail = reader.take();
      if (byte == 0x8E && in(trail, 0xA1, 0xDF)) {
        pieces.push_back(wideKatakana(trail));
      } else if (byte != 0x8E && isHigh(trail)) {
        pieces.push_back(wide(byte - 0xA1, trail - 0xA1));
      } else {
        pieces.push_back({'-', bytes({byte, trail})});
      }
    } else {
      pieces.push_back({'1', bytes({byte})});
    }
  }
  return joined(pieces);
}

std::string fromJis(const std::string& text, std::string (*pair)(int, int)) {
  std::string result;
  bool isDouble = false;
  for (Reader reader{text}; !reader.atEnd();) {
    const int byte = reader.take();
    if (byte == 0x1B) {
      const int kind = reader.take();
      isDouble = kind == 'K' || kind == '$';
      if (kind == '$' || kind == '(') {
        reader.take();
      }
    } else if (byte == '\n' || byte == '\r') {
      isDouble = false;
      result += bytes({byte});
    } else if (isDouble && !reader.atEnd()) {
      result += pair(byte, reader.take());
    } else {
      result += bytes({byte});
    }
  }
  return result;
}

std::string jisToEuc(const std::string& text) {
  return fromJis(text, [](int row, int cell) { return bytes({row + 0x80, cell + 0x80}); });
}

std::string jisToShift(const std::string& text) {
  return fromJis(text, [](int row, int cell) {
    auto first = static_cast<unsigned char>(row);
    auto second = static_cast<unsigned char>(cell);
    jis2sjis(&first, &second);
    return bytes({first, second});
  });
}

// The first row whose end is above the order decides, by looking at each.
const Big5CnsTable* rowFor(const Big5CnsTable (&table)[Big5CnsTableSize], int order) {
  for (const Big5CnsTable& row : table) {
    if (row.last > order) {
      return order >= row.first ? &row : nullptr;
    }
  }
  return nullptr;
}

std::string big5ToEuch(const std::string& text) {
  std::string result;
  for (Reader reader{text}; !reader.atEnd();) {
    const int lead = reader.take();
    if (lead < 0x80) {
      result += bytes({lead});
      continue;
    }
    const int trail = reader.take();
    const bool isCode = isHigh(lead) && (isHigh(trail) || in(trail, 0x40, 0x7E));
    const int order = lead * 157 + trail - (trail < 0xA1 ? 25341 : 25375);
    const Big5CnsTable* row = isCode ? rowFor(Big5ToCnsTable, order) : nullptr;
    if (row == nullptr) {
      result += "??";
      continue;
    }
    const int cns = row->otherFirst + order - row->first;
    result += row->plane == 1 ? "" : bytes({0x8E, 0xA0 + row->plane});
    result += bytes({cns / 94 + 0xA1, cns % 94 + 0xA1});
  }
  return result;
}

std::string euchToBig5(const std::string& text) {
  std::string result;
  for (Reader reader{text}; !reader.atEnd();) {
    const int byte = reader.take();
    if (!isHigh(byte) && byte != 0x8E) {
      result += bytes({byte});
      continue;
    }
    const int plane = byte == 0x8E ? reader.take() : 0xA1;
    const int row = byte == 0x8E ? reader.take() : byte;
    const int cell = reader.take();
    const int order = row * 94 + cell - 15295 + plane * 8836 - 1422596;
    const Big5CnsTable* run = isHigh(row) && isHigh(cell) ? rowFor(CnsToBig5Table, order) : nullptr;
    if (run == nullptr) {
      result += "??";
      continue;
    }
    const int big5 = run->otherFirst + order - run->first;
    const int trail = big5 % 157 + 0x40;
    result += bytes({big5 / 157 + 0xA1, trail >= 0x7F ? trail + 34 : trail});
  }
  return result;
}

}  // namespace

const PlainConverter kPlainConverters[kPlainConverterCount] = {
    {"shift2eucx", shift2eucx, shiftToEuc, eucLength, false},
    {"euc2shiftx", euc2shiftx, eucToShift, shiftLength, false},
    {"shift2jisx", shift2jisx, shiftToJis, nullptr, true},
    {"euc2jisx", euc2jisx, eucToJis, nullptr, true},
    {"jis2shiftx", jis2shiftx, jisToShift, nullptr, false},
    {"jis2eucx", jis2eucx, jisToEuc, nullptr, false},
    {"big2euchx", big2euchx, big5ToEuch, euchLength, false},
    {"euch2bigx", euch2bigx, euchToBig5, big5Length, false},
};
static_assert(std::size(kPlainConverters) == kPlainConverterCount);

std::string PlainConverter::converted(const std::string& text) const {
  // A pair of JIS can give a zero, which ends the text for its reader.
  return plain(text).c_str();
}

size_t PlainConverter::targetSize(size_t length) const {
  return toJis ? 5 * length + 9 : 3 * length + 1;
}
