// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/CodiciTastiera.h"

#include <algorithm>
#include <array>

namespace
{
struct Riga {
    quint32 codice;
    const char *layout;
    const char *variante;
};

// Language codes that Windows and the X keyboard extension share, ascending.
constexpr std::array Righe = std::to_array<Riga>({
    {0x0401, "ara", ""},   {0x0402, "bg", ""}, {0x0404, "tw", ""},    {0x0405, "cz", ""},   {0x0406, "dk", ""},
    {0x0407, "de", ""},    {0x0408, "gr", ""}, {0x0409, "us", ""},    {0x040A, "es", ""},   {0x040B, "fi", ""},
    {0x040C, "fr", ""},    {0x040D, "il", ""}, {0x040E, "hu", ""},    {0x040F, "is", ""},   {0x0410, "it", ""},
    {0x0411, "jp", ""},    {0x0412, "kr", ""}, {0x0413, "nl", ""},    {0x0414, "no", ""},   {0x0415, "pl", ""},
    {0x0416, "br", ""},    {0x0418, "ro", ""}, {0x0419, "ru", ""},    {0x041A, "hr", ""},   {0x041B, "sk", ""},
    {0x041C, "al", ""},    {0x041D, "se", ""}, {0x041E, "th", ""},    {0x041F, "tr", ""},   {0x0420, "pk", ""},
    {0x0422, "ua", ""},    {0x0423, "by", ""}, {0x0424, "si", ""},    {0x0425, "ee", ""},   {0x0426, "lv", ""},
    {0x0427, "lt", ""},    {0x0429, "ir", ""}, {0x042A, "vn", ""},    {0x042B, "am", ""},   {0x042C, "az", ""},
    {0x042F, "mk", ""},    {0x0437, "ge", ""}, {0x0439, "in", ""},    {0x043A, "mt", ""},   {0x043F, "kz", ""},
    {0x0440, "kg", ""},    {0x0443, "uz", ""}, {0x0444, "ru", "tt"},  {0x0445, "bd", ""},   {0x044E, "in", "marathi"},
    {0x0449, "in", "tam"}, {0x0450, "mn", ""}, {0x0452, "gb", ""},    {0x0453, "kh", ""},   {0x0454, "la", ""},
    {0x045B, "lk", ""},    {0x045E, "et", ""}, {0x0804, "cn", ""},    {0x0807, "ch", ""},   {0x0809, "gb", ""},
    {0x080A, "latam", ""}, {0x080C, "be", ""}, {0x0813, "be", ""},    {0x0816, "pt", ""},   {0x081A, "rs", "latin"},
    {0x0C0C, "ca", ""},    {0x0C1A, "rs", ""}, {0x1009, "ca", "eng"}, {0x100C, "ch", "fr"}, {0x1809, "ie", ""},
    {0x201A, "ba", ""},
});
} // namespace

std::optional<Disposizione> DisposizioneDi(const QString &nome)
{
    bool esadecimale = false;
    const quint32 codice = nome.toUInt(&esadecimale, 16);
    const auto riga = std::lower_bound(Righe.begin(), Righe.end(), codice,
                                       [](const Riga &una, quint32 cercato) { return una.codice < cercato; });
    if (!esadecimale || nome.size() != 8 || riga == Righe.end() || riga->codice != codice)
        return std::nullopt;
    return Disposizione{QString::fromLatin1(riga->layout), QString::fromLatin1(riga->variante)};
}
