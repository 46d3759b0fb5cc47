// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Tastiera.h"

#include "app/CodiciTastiera.h"

#include <QGuiApplication>
#include <QSocketNotifier>

#include <utility>

#ifdef Q_OS_UNIX
#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#endif

#ifdef Q_OS_UNIX
namespace
{
// Written in the signal's handler, read in the event loop.
int SegnaleScritto = -1;

void Segnale(int numero)
{
    const auto byte = static_cast<unsigned char>(numero);
    [[maybe_unused]] const ssize_t scritti = write(SegnaleScritto, &byte, 1);
}
} // namespace
#endif

Tastiera::Tastiera(std::unique_ptr<MezzoTastiera> mezzo) : m_mezzo(std::move(mezzo))
{
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &Tastiera::StatoCambiato);
    AscoltaSegnali();
}

Tastiera::~Tastiera()
{
    if (m_mezzo)
        m_mezzo->Restituisci();
}

bool Tastiera::Attiva(const QString &nome)
{
    if (!m_mezzo)
        return false;
    m_voluta = nome;
    // Another program in front has the user's own layout; this one comes with the way back.
    if (QGuiApplication::applicationState() != Qt::ApplicationActive)
        return DisposizioneDi(nome).has_value();
    return m_mezzo->Carica(nome);
}

void Tastiera::StatoCambiato(Qt::ApplicationState stato)
{
    if (!m_mezzo || m_voluta.isEmpty())
        return;
    if (stato == Qt::ApplicationActive)
        m_mezzo->Carica(m_voluta);
    else
        m_mezzo->Restituisci();
}

void Tastiera::AscoltaSegnali()
{
#ifdef Q_OS_UNIX
    std::array<int, 2> capi{};
    if (!m_mezzo || SegnaleScritto >= 0 || pipe2(capi.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    SegnaleScritto = capi[1];
    auto *arrivo = new QSocketNotifier(capi[0], QSocketNotifier::Read, qApp);
    connect(arrivo, &QSocketNotifier::activated, this, [this, lettura = capi[0]] {
        unsigned char numero = 0;
        if (read(lettura, &numero, 1) != 1)
            return;
        m_mezzo->Restituisci();
        m_mezzo.reset();
        // As it would have ended without us.
        static_cast<void>(std::raise(numero));
    });
    struct sigaction azione = {};
    azione.sa_handler = Segnale;
    azione.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    for (const int numero : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction prima = {};
        // One that the user's shell has set aside stays so.
        if (sigaction(numero, nullptr, &prima) == 0 && prima.sa_handler != SIG_IGN)
            sigaction(numero, &azione, nullptr);
    }
#endif
}
