// Upper-casing and Hungarian alphabetical order of Windows-1250 text (name lists, ingredient lists).
#pragma once

#include <string>
#include <string_view>

namespace rovanel
{

// Upper case of every letter Windows-1250 has in both cases (á -> Á, ő -> Ő, š -> Š); other bytes stay.
[[nodiscard]] std::string upperCaseCp1250(std::string_view text);

// A byte string whose plain byte order is the Hungarian alphabetical order of `text`, case-insensitive:
// digraphs and trigraphs are letters of their own (C < CS, D < DZ < DZS, G < GY, L < LY, N < NY, S < SZ,
// T < TY, Z < ZS); an accented vowel equals its base at the first level (A = Á, O = Ó, Ö = Ő, U = Ú,
// Ü = Ű) and follows it only when the texts are otherwise equal; blanks sort before punctuation, which
// sorts before digits, which sort before letters. Texts equal in all of this are ordered by their bytes.
[[nodiscard]] std::string hungarianSortKey(std::string_view text);

}  // namespace rovanel
