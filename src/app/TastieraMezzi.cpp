// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Tastiera.h"

#ifdef Q_OS_WIN
#include "app/TastieraWindows.h"
#endif
#ifdef VARBEL_X11
#include "app/TastieraX11.h"
#endif
#ifdef VARBEL_DBUS
#include "app/TastieraKde.h"
#endif

#include <QGuiApplication>

using namespace Qt::StringLiterals;

#ifdef Q_OS_WIN
namespace
{
class Windows : public MezzoTastiera
{
public:
    bool Carica(const QString &nome) override { return CaricaTastieraWindows(nome.toLatin1().constData()); }
    void Restituisci() override { RestituisciTastieraWindows(); }
};
} // namespace
#endif

std::unique_ptr<MezzoTastiera> CreaMezzoTastiera()
{
#ifdef Q_OS_WIN
    return std::make_unique<Windows>();
#else
    [[maybe_unused]] const QString piattaforma = QGuiApplication::platformName();
#ifdef VARBEL_X11
    if (piattaforma == "xcb"_L1)
        return CreaTastieraX11();
#endif
#ifdef VARBEL_DBUS
    if (piattaforma.startsWith("wayland"_L1))
        return CreaTastieraKde();
#endif
    return nullptr;
#endif
}
