#include "lists/reports/occupancy_picture.h"

#include "core/mdlGlobal.h"
#include "core/platform/places.h"
#include "core/runtime_error.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/page_writer.h"

#include <QDir>
#include <QSaveFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

// Measures of the drawing in its own units; the page scales it to the width of a table.
constexpr int kWidth = 1000;
constexpr int kNameWidth = 220;
constexpr int kColumnWidth = (kWidth - kNameWidth) / kPlanColumns;
constexpr int kBarWidth = 84;
constexpr int kBarHeight = 16;
constexpr int kRowHeight = 34;
constexpr int kHeadHeight = 26;
constexpr int kNameLetters = 24;

/// Most pupils or places of a column: its bars share a scale over the whole week, so that the days can be
/// compared.
using Scale = std::array<int, kPlanColumns>;

Scale scaleOf(const OccupancyPlan& plan) {
    Scale scale{};
    scale.fill(1);
    for (std::size_t i = 0; i < plan.Angebote.size(); ++i)
        for (int column = 0; column < kPlanColumns; ++column) {
            int& most = scale[static_cast<std::size_t>(column)];
            most = std::max(most, plan.Angebote[i].Plaetze[static_cast<std::size_t>(column)]);
            for (int day = 0; day < kSchoolDays; ++day)
                most = std::max(most, plan.taken(i, day, column));
        }
    // The four letters can be compared with each other, too.
    const int most = *std::max_element(scale.begin(), scale.begin() + kPlanLetters);
    std::fill(scale.begin(), scale.begin() + kPlanLetters, most);
    return scale;
}

/// A text of the office on the drawing: markup has no meaning there.
QString drawn(const QString& text) {
    return (text.size() > kNameLetters ? text.left(kNameLetters - 1) + u'…' : text).toHtmlEscaped();
}

QString rectangle(int x, int y, int width, int height, QStringView look) {
    return uR"(<rect x="%1" y="%2" width="%3" height="%4" class="%5"/>)"_s.arg(x)
        .arg(y)
        .arg(width)
        .arg(height)
        .arg(look);
}

QString label(int x, int y, QStringView look, const QString& text) {
    return uR"(<text x="%1" y="%2" class="%3">%4</text>)"_s.arg(x).arg(y).arg(look, text);
}

class PictureWriter {
public:
    PictureWriter(PageWriter& page, const OccupancyPlan& plan)
        : m_page(page), m_plan(plan), m_scale(scaleOf(plan)) {}

    void writeDay(int day) {
        const int height = kHeadHeight + kRowHeight * static_cast<int>(m_plan.Angebote.size());
        const QString& name = dayNames().at(static_cast<std::size_t>(day));
        m_page.line(u"<section>");
        m_page.line({u"<h2>", name, u"</h2>"});
        m_page.line(uR"(<svg role="img" aria-label="Belegung am %1" viewBox="0 0 %2 %3">)"_s.arg(name)
                        .arg(kWidth)
                        .arg(height));
        for (int column = 0; column < kPlanColumns; ++column)
            m_page.line(label(columnLeft(column), kHeadHeight - 9, u"kopf",
                              planColumnNames().at(static_cast<std::size_t>(column))));
        for (std::size_t i = 0; i < m_plan.Angebote.size(); ++i)
            writeOffering(i, day, kHeadHeight + kRowHeight * static_cast<int>(i));
        m_page.line(u"</svg>");
        m_page.line(u"</section>");
    }

private:
    static int columnLeft(int column) { return kNameWidth + column * kColumnWidth; }

    int length(int places, int column) const {
        return std::max(places, 0) * kBarWidth / m_scale.at(static_cast<std::size_t>(column));
    }

    void writeOffering(std::size_t offering, int day, int top) {
        const OccupancyOffering& entry = m_plan.Angebote[offering];
        m_page.line(uR"(<line x1="0" y1="%1" x2="%2" y2="%1" class="trenner"/>)"_s.arg(top).arg(kWidth));
        m_page.line(label(0, top + 15, u"name", drawn(entry.Bezeichnung)));
        m_page.line(label(0, top + 29, u"zeit", drawn(entry.Zeit)));
        for (int column = 0; column < kPlanColumns; ++column)
            writeBar(offering, day, column, top + (kRowHeight - kBarHeight) / 2);
    }

    /// The places as a frame, the taken ones as a filling, and those that are too many behind the frame.
    void writeBar(std::size_t offering, int day, int column, int top) {
        const int taken = m_plan.taken(offering, day, column);
        const int places = m_plan.Angebote[offering].Plaetze.at(static_cast<std::size_t>(column));
        const bool overfull = m_plan.overfull(offering, day, column);
        const int left = columnLeft(column);
        const int frame = length(places, column);
        const int filling = length(taken, column);
        m_page.line(rectangle(left, top, std::min(frame, filling), kBarHeight, u"belegt"));
        if (overfull)
            m_page.line(rectangle(left + frame, top, std::max(filling - frame, 2), kBarHeight, u"zuviel"));
        m_page.line(rectangle(left, top, frame, kBarHeight, u"plaetze"));
        const QString figures = u"%1/%2"_s.arg(taken).arg(places);
        m_page.line(label(left + std::max(frame, filling) + 5, top + 13, overfull ? u"zahl voll" : u"zahl",
                          overfull ? figures + u" !"_s : figures));
    }

    PageWriter& m_page;
    const OccupancyPlan& m_plan;
    const Scale m_scale;
};

void writeHead(PageWriter& page, const ListState& liste, const QString& title) {
    page.line(u"<!DOCTYPE html>");
    page.line(uR"(<html lang="de"><head><meta charset="windows-1252">)");
    page.line({u"<title>", title, u"</title>"});
    page.line(u"<style>");
    page.line(u"body {font-family: Arial, sans-serif; color: #000; background: #fff; margin: 20px 40px;}");
    page.line(u"h1 {font-size: 1.3em; text-align: center;}");
    page.line(u"p {font-size: 14px;}");
    page.line(u"h2 {font-size: 16px; margin: 18px 0 2px 0;}");
    page.line(u"section {break-inside: avoid; page-break-inside: avoid;}");
    page.line(u"svg {display: block; width: %1pt; max-width: 100%; height: auto;}"_s.arg(
        liste.Seite.TabellenBreite));
    page.line(u"text {font-size: 15px;}");
    page.line(u".name, .kopf, .voll {font-weight: bold;}");
    page.line(u".zeit {font-size: 12px; fill: #404040;}");
    page.line(u".plaetze {fill: none; stroke: #606060; stroke-width: 1;}");
    page.line(u".belegt {fill: #7da7d9;}");
    page.line(u".zuviel {fill: url(#schraffur); stroke: #c00000; stroke-width: 1;}");
    page.line(u".voll {fill: #c00000;}");
    page.line(u".trenner {stroke: #d0d0d0; stroke-width: 1;}");
    page.line(u"</style></head>");
    // In capitals like on every page: the footer of the printed sheet is put in behind it.
    page.line(u"<BODY>");
    page.line({u"<h1>", title, u"</h1>"});
    page.line({u"<p>Belegte und maximale Plätze, Stand: ", liste.ListenDatum.toString(u"dd.MM.yyyy"_s),
               u". Nur Klassen A bis D, ohne Schulanfänger.</p>"});
}

/// What the bars mean, and the hatching that all of them share. Hatched, so that a sheet from a printer
/// without colours shows it, too.
void writeLegend(PageWriter& page) {
    page.line(uR"(<svg role="img" aria-label="Legende" viewBox="0 0 1000 24">)");
    page.line(uR"(<defs><pattern id="schraffur" width="6" height="6" patternUnits="userSpaceOnUse">)");
    page.line(uR"(<rect width="6" height="6" fill="#fff"/>)");
    page.line(uR"(<path d="M0 6 L6 0 M-1 1 L1 -1 M5 7 L7 5" stroke="#c00000" stroke-width="2"/>)");
    page.line(u"</pattern></defs>");
    struct Entry {
        QStringView look;
        QString text;
    };
    const std::array<Entry, 3> entries{
        {{u"plaetze", u"Plätze"_s}, {u"belegt", u"belegt"_s}, {u"zuviel", u"mehr Kinder als Plätze (!)"_s}}};
    int left = 0;
    for (const auto& [look, text] : entries) {
        page.line(rectangle(left, 4, 30, kBarHeight, look));
        page.line(label(left + 36, 17, u"zahl", text));
        left += 140;
    }
    page.line(u"</svg>");
}

} // namespace

bool hasOccupancyPicture(quint8 listenArt) {
    return listenArt == kMensaBelegung || listenArt == kLernzeitBelegung;
}

QString occupancyPictureFile() {
    return programDataFolder() + u"/mog_grafik.html"_s;
}

QString writeOccupancyPicture() {
    const auto& liste = Liste();
    QSaveFile file(occupancyPictureFile());
    const auto failed = [&] {
        throw RuntimeError::fileAccess(
            u"%1: %2"_s.arg(QDir::toNativeSeparators(file.fileName()), file.errorString()));
    };
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        failed();
    PageWriter page(file);
    const QString word = Global().ListenArt == kMensaBelegung ? u"MENSA"_s : u"LERNZEIT"_s;
    writeHead(page, liste, word + u" BELEGUNG ALS GRAFIK"_s);
    writeLegend(page);
    PictureWriter picture(page, liste.Belegung);
    if (!liste.Belegung.Angebote.empty())
        for (int day = 0; day < kSchoolDays; ++day)
            picture.writeDay(day);
    page.line(u"</BODY></html>");
    page.flush();
    if (!file.commit())
        failed();
    return file.fileName();
}

} // namespace kolibri
