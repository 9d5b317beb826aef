#!/usr/bin/env python3
"""Makes text/jaconv_tables.cpp, the tables of the converters.

usage: python3 text/jaconv_tables.py >text/jaconv_tables.cpp

Input: the codecs of Python (iso8859_2, iso8859_5, cp1250, cp1251, shift_jis) and its Unicode data, and for Big5 the
list of runs below. A test runs this script again and compares.
"""
import unicodedata

# Runs of characters that are consecutive in Big5 and in CNS 11643: first and last character in Big5, first in CNS (row
# and cell, 7 bits each). The hanzi follow the charmaps BIG5 and EUC-TW of the GNU C library; the symbols go by position,
# as both standards list them, since there the two charmaps choose different Unicode characters for the same symbol.
RUNS = {
    1: """A140-A1F5 2121, A1F6 2258, A1F7 2257, A1F8-A2AE 2259, A2AF-A3BF 2421, A3C0-A3E0 4221, A440-ACFD 4421,
          ACFE 5753, AD40-AFCF 5323, AFD0-BBC7 5754, BBC8-BE51 6B51, BE52 6B50, BE53-C1AA 6F5C, C1AB-C2CA 7536,
          C2CB 7535, C2CC-C360 7737, C361-C3B8 782E, C3B9 7865, C3BA 7864, C3BB-C455 7866, C456 782D,
          C457-C67E 7962""",
    2: """C940-C949 2121, C94B-C96B 212B, C96C-C9BD 214D, C9BE 214C, C9BF-C9EC 217D, C9ED-CAF6 224E, CAF7 224D,
          CAF8-D6CB 2439, D6CC 3E63, D6CD-D779 3770, D77A 3F6A, D77B-DADE 387E, DADF 376F, DAE0-DBA6 3E64,
          DBA7-DDFB 3F6B, DDFD-E8A2 4424, E8A3-E975 554C, E976-EB5A 5723, EB5B-EBF0 5A29, EBF1 554B, EBF2-ECDD 5B3F,
          ECDE 5722, ECDF-EDA9 5C6A, EDAA-EEEA 5D75, EEEB 642F, EEEC-F055 6039, F056 5D74, F057-F0CA 6243, F0CB 5A28,
          F0CC-F162 6337, F163-F16A 6430, F16B 6761, F16C-F267 6438, F268 6934, F269-F2C2 6573, F2C3-F374 664E,
          F375-F465 6762, F466-F4B4 6935, F4B5 664D, F4B6-F4FC 6962, F4FD-F662 6A4C, F663 6A4B, F664-F976 6C52,
          F977-F9C3 7167, F9C4 7166, F9C5 7234, F9C6 7240, F9C7-F9D1 7235, F9D2-F9D5 7241""",
}

# No lookup reaches a row of this kind.
FILLING = (0x7FFFFFFF, 0x7FFFFFFF, 0, 0, 0)
ROWS = 106
PLANE_SIZE = 94 * 94

# The Windows bytes without a place in the ISO code set, in the order of the control codes that stand for them, from 1.
CARRIED_1251 = [164, 166, 169, 171, 172, 174, 176, 177, 180, 181, 182, 183, 187, 165]
CARRIED_1250 = [166, 169, 171, 172, 174, 177, 181, 182, 183, 187]


def big5_order(code):
    lead, trail = code >> 8, code & 0xFF
    return (lead - 0xA1) * 157 + trail - (0x40 if trail < 0xA1 else 0x62)


def cns_order(code):
    return ((code >> 8) - 0x21) * 94 + (code & 0xFF) - 0x21


def runs():
    """Rows of first and last order in Big5, first and last in the plane, plane."""
    for plane, text in RUNS.items():
        for run in text.split(","):
            big5, cns = run.split()
            first, _, last = big5.partition("-")
            first, last = big5_order(int(first, 16)), big5_order(int(last or first, 16))
            start = cns_order(int(cns, 16))
            yield first, last, start, start + last - first, plane


def big5_tables():
    to_cns = list(runs())
    to_big5 = sorted((c1 + (plane - 1) * PLANE_SIZE, c2 + (plane - 1) * PLANE_SIZE, b1, b2, 0)
                     for b1, b2, c1, c2, plane in to_cns)
    for name, rows in (("Big5ToCnsTable", to_cns), ("CnsToBig5Table", to_big5)):
        ends = [row[1] for row in rows]
        assert ends == sorted(ends) and len(rows) <= ROWS
        assert all(a[1] < b[0] for a, b in zip(rows, rows[1:])), name
        yield name, rows + [FILLING] * (ROWS - len(rows))


def page(source, target, first, last, carried):
    """The byte of `target` for each byte of `source` from first to last."""
    for byte in range(first, last + 1):
        try:
            yield bytes([byte]).decode(source).encode(target)[0]
        except UnicodeError:
            # A byte without counterpart has its control code; the codes do not reach below 160.
            yield carried.index(byte) + 1 if byte in carried else byte
            assert byte in carried or byte < 160


def katakana():
    """Two bytes of Shift-JIS for each half-width byte from 0xA1."""
    for code in range(0xFF61, 0xFFA0):
        wide = unicodedata.normalize("NFKC", chr(code))
        # The marks by themselves are spacing characters.
        yield from {"\u3099": "\u309B", "\u309A": "\u309C"}.get(wide, wide).encode("shift_jis")


def lines(values, form, width):
    values = [form.format(value) for value in values]
    for i in range(0, len(values), width):
        yield "    " + " ".join(value + "," for value in values[i:i + width])


def main():
    out = ["// Made by: python3 text/jaconv_tables.py >text/jaconv_tables.cpp", "", '#include "text/jaconv_tables.h"',
           "", "// clang-format off"]
    for name, rows in big5_tables():
        out += ["", f"const Big5CnsTable {name}[Big5CnsTableSize] = {{"]
        out += [f"    {{{', '.join(map(str, row))}}}," for row in rows] + ["};"]
    for name, source, target, first, last, carried in (
            ("t8859_5To1251", "iso8859_5", "cp1251", 160, 255, []),
            ("t1251To8859_5", "cp1251", "iso8859_5", 128, 255, CARRIED_1251),
            ("t8859_2To1250", "iso8859_2", "cp1250", 160, 191, []),
            ("t1250To8859_2", "cp1250", "iso8859_2", 128, 191, CARRIED_1250)):
        values = list(page(source, target, first, last, carried))
        out += ["", f"const int {name}[{len(values)}] = {{", *lines(values, "{}", 16), "};"]
    for name, values in (("carriedIn1251", CARRIED_1251), ("carriedIn1250", CARRIED_1250)):
        out += ["", f"const int {name}[{len(values)}] = {{", *lines(values, "{}", 16), "};"]
    out += ["", "const unsigned char fullWidthKatakana[126] = {", *lines(katakana(), "0x{:02X}", 12), "};"]
    print("\n".join(out))


main()
