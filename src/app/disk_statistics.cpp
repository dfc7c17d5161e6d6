#include "app/disk_statistics.h"

#include <cmath>

#include "app/decorations.h"
#include "app/frmDiskSizeStats.h"
#include "app/frmMain.h"
#include "app/modFreeSpace.h"
#include "base/numbers.h"
#include "settings/frmMoreToConfigure.h"

namespace tidvane::app {

namespace {

float asSingle(const std::string& text, const base::Locale& locale) {
    return base::toSingle(text, locale).value_or(0.0F);
}

// The gain from which on it is told in GB. Read by the locale's rules, as intended: 1000 where the decimal sign is a
// point, 1 where it is a comma.
constexpr const char* kGigabyteGain = "1,000";

}  // namespace

FreeSpaceBefore noteFreeSpaceBefore(settings::Program& program, const std::string& drive) {
    auto& window = program.get<frmDiskSizeStats>();
    window.lblFreeSpace.Caption = GetFreeSpaceText(program, drive);
    const std::string& text = window.lblFreeSpace.Caption;
    return {text, asSingle(text, program.locale())};
}

void reportDiskStatistics(settings::Program& program, const std::string& drive, const FreeSpaceBefore& freeBefore,
                          const std::string& heading) {
    settings::RunReport& report = program.report();
    const float before = freeBefore.number;
    auto& window = program.get<frmDiskSizeStats>();
    if (program.get<settings::frmMoreToConfigure>().chkDisksizeInfo.ticked()) {
        program.display.Show(window, program.windows.ifLoaded<frmMain>(), false);
    }

    const std::string total = GetTotalSpaceText(program, drive);
    window.lblSpaceTotal.Caption = total;
    const std::string afterText = GetFreeSpaceText(program, drive);
    window.lblFreeSpaceAfter.Caption = afterText;
    const float after = asSingle(afterText, program.locale());
    // Kept as a text, and so told with the seven digits that a single has.
    const std::string gainText = base::numberText(after - before, program.locale());
    const float gain = asSingle(gainText, program.locale());

    report.AddLogHeading(heading);
    const std::string totalLine = drive.substr(0, 1) + ":\\ " + total;
    report.AddLogHeading(program.LangText(433) + " " + totalLine);
    window.lblSpaceTotal.Caption = totalLine;
    // The numbers are labelled GB whatever unit they are in: intended.
    if (!(before < after)) {
        window.lblFreeSpace.ForeColor = frmDiskSizeStats::kCleanColour;
        window.ImgFreedSpace.Visible = false;
        window.ImgSysClean.Visible = true;
        report.AddLogHeading(kWideRule);
        report.AddLogHeading(program.LangText(437));
        window.lblFreedSpace.Caption = program.LangText(437);
        window.lblFreeSpace.Caption = base::numberText(before, program.locale()) + " GB";
        report.AddLogHeading(kWideRule);
        // The drive may have lost room meanwhile: nothing negative is shown.
        window.lblFreeSpaceAfter.Caption = window.lblFreeSpace.Caption.get();
        return;
    }

    const bool gigabytes = gain >= base::toSingle(kGigabyteGain, program.locale()).value_or(1.0F);
    const double absolute = std::fabs(base::parseNumber(gainText, program.locale()).value_or(0.0));
    const std::string number = gigabytes ? base::formatNumber(absolute, "###0.0000", program.locale())
                                         : base::formatNumber(absolute * 1024, "###0.00", program.locale());
    const std::string unit = gigabytes ? " GB" : " MB";
    // From the note and not from the label: the window may have been closed meanwhile.
    window.lblFreeSpace.Caption = freeBefore.text + " GB";
    report.AddLogHeading(program.LangText(434) + " " + window.lblFreeSpace.Caption.get());
    report.AddLogHeading(program.LangText(435) + " " + afterText + " GB");
    report.AddLogHeading(kWideRule);
    report.AddLogHeading(program.LangText(436) + " " + number + unit);
    window.lblFreeSpaceAfter.Caption = afterText + " GB";
    window.lblFreeSpace.ForeColor = frmDiskSizeStats::kGainColour;
    window.ImgFreedSpace.Visible = true;
    window.ImgSysClean.Visible = false;
    window.lblFreedSpace.Caption = number + unit + " (" + program.LangText(439) + ")";
    report.AddLogHeading(kWideRule);
}

}  // namespace tidvane::app
