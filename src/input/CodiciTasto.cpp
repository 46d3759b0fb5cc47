// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "input/CodiciTasto.h"

#include <QString>
#include <Qt>

#include <algorithm>
#include <array>
#include <utility>

namespace
{
struct TastoNominato {
    int tasto;
    qint16 codice;
};

constexpr std::array<TastoNominato, 43> Nominati = {{
    {Qt::Key_Backspace, 8},    {Qt::Key_Tab, 9},        {Qt::Key_Backtab, 9},      {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13},      {Qt::Key_Enter, 13},     {Qt::Key_Shift, 16},       {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},         {Qt::Key_AltGr, 18},     {Qt::Key_Pause, 19},       {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},      {Qt::Key_Space, 32},     {Qt::Key_PageUp, 33},      {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},         {Qt::Key_Home, 36},      {Qt::Key_Left, 37},        {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},       {Qt::Key_Down, 40},      {Qt::Key_Select, 41},      {Qt::Key_Execute, 43},
    {Qt::Key_Print, 44},       {Qt::Key_SysReq, 44},    {Qt::Key_Insert, 45},      {Qt::Key_Delete, 46},
    {Qt::Key_Help, 47},        {Qt::Key_Meta, 91},      {Qt::Key_Super_L, 91},     {Qt::Key_Super_R, 92},
    {Qt::Key_Menu, 93},        {Qt::Key_Sleep, 95},     {Qt::Key_NumLock, 144},    {Qt::Key_ScrollLock, 145},
    {Qt::Key_Back, 166},       {Qt::Key_Forward, 167},  {Qt::Key_Refresh, 168},    {Qt::Key_VolumeMute, 173},
    {Qt::Key_VolumeDown, 174}, {Qt::Key_VolumeUp, 175}, {Qt::Key_Mode_switch, 31},
}};

// The keypad with digits on it; without, its keys are the named ones.
constexpr std::array<TastoNominato, 16> Tastierino = {{
    {Qt::Key_0, 96},
    {Qt::Key_1, 97},
    {Qt::Key_2, 98},
    {Qt::Key_3, 99},
    {Qt::Key_4, 100},
    {Qt::Key_5, 101},
    {Qt::Key_6, 102},
    {Qt::Key_7, 103},
    {Qt::Key_8, 104},
    {Qt::Key_9, 105},
    {Qt::Key_Asterisk, 106},
    {Qt::Key_Plus, 107},
    {Qt::Key_Minus, 109},
    {Qt::Key_Comma, 110},
    {Qt::Key_Period, 110},
    {Qt::Key_Slash, 111},
}};

struct Posto {
    quint32 scansione;
    qint16 codice;
};

// Places on a US keyboard: evdev codes + 8.
constexpr std::array<Posto, 48> Posti = {{
    {10, '1'}, {11, '2'}, {12, '3'}, {13, '4'}, {14, '5'}, {15, '6'}, {16, '7'}, {17, '8'}, {18, '9'}, {19, '0'},
    {20, 189}, {21, 187}, {24, 'Q'}, {25, 'W'}, {26, 'E'}, {27, 'R'}, {28, 'T'}, {29, 'Y'}, {30, 'U'}, {31, 'I'},
    {32, 'O'}, {33, 'P'}, {34, 219}, {35, 221}, {38, 'A'}, {39, 'S'}, {40, 'D'}, {41, 'F'}, {42, 'G'}, {43, 'H'},
    {44, 'J'}, {45, 'K'}, {46, 'L'}, {47, 186}, {48, 222}, {49, 192}, {51, 220}, {52, 'Z'}, {53, 'X'}, {54, 'C'},
    {55, 'V'}, {56, 'B'}, {57, 'N'}, {58, 'M'}, {59, 188}, {60, 190}, {61, 191}, {94, 226},
}};

// The characters of the US layout's keys, unshifted and shifted, where an event comes without a scan code.
constexpr std::array<std::pair<char, qint16>, 42> Ascii = {{
    {'1', '1'}, {'!', '1'}, {'2', '2'}, {'@', '2'},  {'3', '3'}, {'#', '3'}, {'4', '4'}, {'$', '4'},  {'5', '5'},
    {'%', '5'}, {'6', '6'}, {'^', '6'}, {'7', '7'},  {'&', '7'}, {'8', '8'}, {'*', '8'}, {'9', '9'},  {'(', '9'},
    {'0', '0'}, {')', '0'}, {'-', 189}, {'_', 189},  {'=', 187}, {'+', 187}, {'[', 219}, {'{', 219},  {']', 221},
    {'}', 221}, {';', 186}, {':', 186}, {'\'', 222}, {'"', 222}, {'`', 192}, {'~', 192}, {'\\', 220}, {'|', 220},
    {',', 188}, {'<', 188}, {'.', 190}, {'>', 190},  {'/', 191}, {'?', 191},
}};

template <typename Tavola, typename Predicato>
qint16 Trova(const Tavola &tavola, Predicato predicato)
{
    const auto trovato = std::find_if(tavola.begin(), tavola.end(), predicato);
    if (trovato == tavola.end())
        return 0;
    if constexpr (requires { trovato->codice; })
        return trovato->codice;
    else
        return trovato->second;
}
} // namespace

namespace CodiciTasto
{
qint16 Codice(int tasto, quint32 scansione, bool delTastierino)
{
    const auto diTasto = [tasto](const TastoNominato &nominato) { return nominato.tasto == tasto; };
    if (delTastierino) {
        if (const qint16 codice = Trova(Tastierino, diTasto))
            return codice;
    }
    if (const qint16 codice = Trova(Nominati, diTasto))
        return codice;
    if (tasto >= Qt::Key_F1 && tasto <= Qt::Key_F24)
        return static_cast<qint16>(112 + tasto - Qt::Key_F1);
    if (tasto >= Qt::Key_A && tasto <= Qt::Key_Z)
        return static_cast<qint16>(tasto);
    if (scansione != 0) {
        const qint16 codice = Trova(Posti, [scansione](const Posto &posto) { return posto.scansione == scansione; });
        return codice != 0 ? codice : Sconosciuto;
    }
    const qint16 codice = Trova(Ascii, [tasto](const auto &carattere) { return carattere.first == tasto; });
    return codice != 0 ? codice : Sconosciuto;
}
} // namespace CodiciTasto
