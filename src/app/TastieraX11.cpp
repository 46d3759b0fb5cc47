// SPDX-FileCopyrightText: 2026 The Varbel developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TastieraX11.h"

#include "app/CodiciTastiera.h"

#include <QByteArrayList>
#include <QDataStream>
#include <QGuiApplication>
#include <QProcess>
#include <QStringList>

#include <cstdlib>
#include <memory>
#include <optional>
#include <xcb/xcb.h>

// The extension's header has a field of that name.
#define explicit esplicito
#include <xcb/xkb.h>
#undef explicit

using namespace Qt::StringLiterals;

namespace
{
constexpr int LimiteProcesso = 2000;

struct Liberatore {
    void operator()(void *risposta) const { std::free(risposta); } // NOLINT(cppcoreguidelines-no-malloc)
};
template <typename Risposta>
using RispostaX = std::unique_ptr<Risposta, Liberatore>;

// The standard output of a program that has ended well in time.
std::optional<QByteArray> Esegui(const QString &programma, const QStringList &argomenti, const QByteArray &entrata = {})
{
    QProcess processo;
    processo.setStandardErrorFile(QProcess::nullDevice());
    processo.start(programma, argomenti);
    processo.write(entrata);
    processo.closeWriteChannel();
    if (!processo.waitForFinished(LimiteProcesso)) {
        processo.kill();
        processo.waitForFinished(LimiteProcesso);
        return std::nullopt;
    }
    if (processo.exitStatus() != QProcess::NormalExit || processo.exitCode() != 0)
        return std::nullopt;
    return processo.readAllStandardOutput();
}

// The user's keyboard: the names it was made from (rules, model, layouts, variants, options, each ended by a NUL), the
// map itself, and the locked group.
struct Stato {
    QByteArray nomi;
    QByteArray mappa;
    quint8 gruppo = 0;
};

class TastieraX11 : public MezzoTastiera
{
public:
    TastieraX11();

    bool Carica(const QString &nome) override;
    void Restituisci() override;

private:
    [[nodiscard]] xcb_atom_t Atomo(const char *nome) const;
    [[nodiscard]] QByteArray Proprieta(xcb_atom_t atomo) const;
    void ScriviProprieta(xcb_atom_t atomo, const QByteArray &byte) const;
    [[nodiscard]] quint8 Gruppo() const;
    [[nodiscard]] QByteArray Mappa() const;
    void Conserva();

    xcb_connection_t *m_x = nullptr;
    xcb_window_t m_radice = 0;
    xcb_atom_t m_nomi = 0;
    xcb_atom_t m_pegno = 0;
    QString m_schermo;
    std::optional<Stato> m_utente;
    /// The names after the last change of ours.
    QByteArray m_nostri;
};

Disposizione DisposizioneAttiva(const QByteArray &nomi, quint8 gruppo)
{
    const QByteArrayList campi = nomi.split('\0');
    return {QString::fromLatin1(campi.value(2).split(',').value(gruppo)),
            QString::fromLatin1(campi.value(3).split(',').value(gruppo))};
}

TastieraX11::TastieraX11()
{
    const auto *applicazione = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!applicazione || !applicazione->connection())
        return;
    // Asked for in vain, an extension would shut the connection down.
    const xcb_query_extension_reply_t *estensione = xcb_get_extension_data(applicazione->connection(), &xcb_xkb_id);
    if (!estensione || estensione->present == 0)
        return;
    m_x = applicazione->connection();
    const xcb_setup_t *server = xcb_get_setup(m_x);
    m_radice = xcb_setup_roots_iterator(server).data->root;
    m_nomi = Atomo("_XKB_RULES_NAMES");
    m_pegno = Atomo("_VARBEL_KEYBOARD");
    m_schermo = qEnvironmentVariable("DISPLAY");
    // The toolkit has told the server of the extension already, but not for this use.
    const RispostaX<xcb_xkb_use_extension_reply_t> xkb(xcb_xkb_use_extension_reply(
        m_x, xcb_xkb_use_extension(m_x, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION), nullptr));
    if (!xkb || xkb->supported == 0)
        m_x = nullptr;
}

xcb_atom_t TastieraX11::Atomo(const char *nome) const
{
    const RispostaX<xcb_intern_atom_reply_t> risposta(
        xcb_intern_atom_reply(m_x, xcb_intern_atom(m_x, 0, static_cast<quint16>(qstrlen(nome)), nome), nullptr));
    return risposta ? risposta->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

QByteArray TastieraX11::Proprieta(xcb_atom_t atomo) const
{
    constexpr quint32 massimo = 0x100000;
    const RispostaX<xcb_get_property_reply_t> risposta(xcb_get_property_reply(
        m_x, xcb_get_property(m_x, 0, m_radice, atomo, XCB_GET_PROPERTY_TYPE_ANY, 0, massimo), nullptr));
    if (!risposta || risposta->format != 8)
        return {};
    return {static_cast<const char *>(xcb_get_property_value(risposta.get())),
            xcb_get_property_value_length(risposta.get())};
}

void TastieraX11::ScriviProprieta(xcb_atom_t atomo, const QByteArray &byte) const
{
    if (byte.isEmpty())
        xcb_delete_property(m_x, m_radice, atomo);
    else
        xcb_change_property(m_x, XCB_PROP_MODE_REPLACE, m_radice, atomo, XCB_ATOM_STRING, 8,
                            static_cast<quint32>(byte.size()), byte.constData());
    xcb_flush(m_x);
}

quint8 TastieraX11::Gruppo() const
{
    const RispostaX<xcb_xkb_get_state_reply_t> risposta(
        xcb_xkb_get_state_reply(m_x, xcb_xkb_get_state(m_x, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    return risposta ? risposta->lockedGroup : quint8(0);
}

QByteArray TastieraX11::Mappa() const
{
    return Esegui(u"xkbcomp"_s, {u"-w0"_s, u"-xkb"_s, m_schermo, u"-"_s}).value_or(QByteArray());
}

// A copy of the user's keyboard also lies with the server, beside the names of ours: a program that is killed leaves
// it for the next one, which then does not take our layout for the user's.
void TastieraX11::Conserva()
{
    const QByteArray adesso = Proprieta(m_nomi);
    if (m_utente && adesso == m_nostri)
        return;
    QByteArray nostri;
    Stato lasciato;
    QByteArray pegno = Proprieta(m_pegno);
    QDataStream lettura(pegno);
    lettura >> nostri >> lasciato.nomi >> lasciato.mappa >> lasciato.gruppo;
    if (lettura.status() == QDataStream::Ok && nostri == adesso)
        m_utente = lasciato;
    else
        m_utente = Stato{adesso, Mappa(), Gruppo()};
}

bool TastieraX11::Carica(const QString &nome)
{
    const std::optional<Disposizione> voluta = DisposizioneDi(nome);
    if (!m_x || xcb_connection_has_error(m_x) != 0 || !voluta)
        return false;
    const Disposizione attiva = DisposizioneAttiva(Proprieta(m_nomi), Gruppo());
    // A variant of the user's own choosing is better than none.
    if (attiva.layout == voluta->layout && (voluta->variante.isEmpty() || attiva.variante == voluta->variante))
        return true;
    Conserva();
    const QByteArray prima = Proprieta(m_nomi);
    const bool riuscito = Esegui(u"setxkbmap"_s, {u"-display"_s, m_schermo, u"-layout"_s, voluta->layout, u"-variant"_s,
                                                  voluta->variante})
                              .has_value();
    // One that was stopped may have changed the keyboard before.
    const QByteArray adesso = Proprieta(m_nomi);
    if (!riuscito && adesso == prima)
        return false;
    m_nostri = adesso;
    QByteArray pegno;
    QDataStream scrittura(&pegno, QIODevice::WriteOnly);
    scrittura << m_nostri << m_utente->nomi << m_utente->mappa << m_utente->gruppo;
    ScriviProprieta(m_pegno, pegno);
    return riuscito;
}

void TastieraX11::Restituisci()
{
    if (!m_x || xcb_connection_has_error(m_x) != 0 || !m_utente)
        return;
    const Stato utente = *std::exchange(m_utente, std::nullopt);
    ScriviProprieta(m_pegno, {});
    // What somebody else has set meanwhile is the user's wish.
    if (Proprieta(m_nomi) != m_nostri)
        return;
    const QByteArrayList campi = utente.nomi.split('\0');
    QStringList argomenti = {u"-display"_s, m_schermo, u"-option"_s, QString()};
    const QStringList nomi = {u"-rules"_s, u"-model"_s, u"-layout"_s, u"-variant"_s};
    for (qsizetype i = 0; i < nomi.size(); ++i)
        argomenti += {nomi[i], QString::fromLatin1(campi.value(i))};
    for (const QByteArray &opzione : campi.value(nomi.size()).split(',')) {
        if (!opzione.isEmpty())
            argomenti += {u"-option"_s, QString::fromLatin1(opzione)};
    }
    // The names give the map back as it was made; one changed by hand since then is loaded as it was.
    if (utente.nomi.isEmpty() || !Esegui(u"setxkbmap"_s, argomenti) || Mappa() != utente.mappa)
        Esegui(u"xkbcomp"_s, {u"-w0"_s, u"-"_s, m_schermo}, utente.mappa);
    ScriviProprieta(m_nomi, utente.nomi);
    xcb_xkb_latch_lock_state(m_x, XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, utente.gruppo, 0, 0, 0);
    xcb_flush(m_x);
}
} // namespace

std::unique_ptr<MezzoTastiera> CreaTastieraX11()
{
    return std::make_unique<TastieraX11>();
}
