// Lists of recent files of Microsoft Office, 2000 (9.0), XP (10.0), 2003 (11.0) and 2007 (12.0), and of FrontPage.
#include <array>

#include "frontend/sample/sample_trace_tables.h"

namespace tidvane::frontend {

namespace {

using namespace taken_by;
using enum SampleHive;

#define OFFICE "Software\\Microsoft\\Office\\"
#define O9 OFFICE "9.0\\"
#define O10 OFFICE "10.0\\"
#define O11 OFFICE "11.0\\"
#define O12 OFFICE "12.0\\"
#define OPENFIND "Common\\Open Find\\"
#define MRU "\\File Name MRU"
#define FRONTPAGE "Software\\Microsoft\\FrontPage\\"
#define FP FRONTPAGE "Explorer\\FrontPage Explorer\\"

// clang-format off
constexpr std::array kValues{
    // Access. Of the generations 9.0 to 11.0 all its settings go.
    SampleValue{User, O9 "Access\\Settings",                 "MRU1", "C:\\Data\\stock.mdb", Office},
    SampleValue{User, O9 "Access\\Settings",                 "Maximized", "1", Office},
    SampleValue{User, O9 OPENFIND "Microsoft Access\\Settings\\Open" MRU,               "Value", "stock.mdb", Office},
    SampleValue{User, O9 OPENFIND "Microsoft Access\\Settings\\File New Database" MRU,  "Value", "db1.mdb", Office},
    SampleValue{User, O10 "Access\\Settings",                "MRU1", "C:\\Data\\stock.mdb", Office},
    SampleValue{User, O10 OPENFIND "Microsoft Access\\Settings\\File New Database" MRU, "Value", "db2.mdb", Office},
    SampleValue{User, O11 "Access\\Settings",                "MRU1", "C:\\Data\\club.mdb", Office},
    SampleValue{User, O11 "Access\\Recent Templates",        "1", "Contacts.mdt", Office},
    SampleValue{User, O12 OPENFIND "Microsoft Office Access\\Settings\\Open" MRU,       "Item 1", "club.accdb", Office},
    SampleValue{User, O9 OPENFIND "Microsoft Access\\Settings\\Open",               "View", "Details", Nobody},
    SampleValue{User, O9 OPENFIND "Microsoft Access\\Settings\\File New Database",  "View", "List", Nobody},
    SampleValue{User, O10 OPENFIND "Microsoft Access\\Settings\\File New Database", "View", "List", Nobody},
    SampleValue{User, O12 "Access\\Settings",                "MRU1", "C:\\Data\\club.accdb", Nobody},

    // Excel
    SampleValue{User, O9 "Excel\\Recent Files",              "File1", "C:\\Data\\Budget 2001.xls", Office},
    SampleValue{User, O9 OPENFIND "Microsoft Excel\\Settings\\Open" MRU,            "Value", "Budget 2001.xls", Office},
    SampleValue{User, O9 OPENFIND "Microsoft Excel\\Settings\\Save As" MRU,         "Value", "Budget 2001.xls", Office},
    SampleValue{User, O10 "Excel\\Recent Files",             "File1", "C:\\Data\\Budget 2003.xls", Office},
    SampleValue{User, O11 "Excel\\Recent Files",             "File1", "C:\\Users\\<user>\\Documents\\Budget 2009.xls", Office},
    SampleValue{User, O11 "Excel\\Recent Templates",         "1", "Invoice.xlt", Office},
    SampleValue{User, O11 OPENFIND "Microsoft Office Excel\\Settings\\Open" MRU,    "Value", "Budget 2009.xls", Office},
    SampleValue{User, O11 OPENFIND "Microsoft Office Excel\\Settings\\Save As" MRU, "Value", "Budget 2009.xls", Office},
    SampleValue{User, O12 "Excel\\File MRU",                 "Item 1", "*C:\\Users\\<user>\\Documents\\Budget.xlsx", Office},
    SampleValue{User, O12 OPENFIND "Microsoft Office Excel\\Settings\\Open" MRU,    "Item 1", "Budget.xlsx", Office},
    SampleValue{User, O9 "Excel\\Options",                   "DefaultPath", "C:\\Data", Nobody},
    SampleValue{User, O9 OPENFIND "Microsoft Excel\\Settings\\Open",                "View", "List", Nobody},
    SampleValue{User, O9 OPENFIND "Microsoft Excel\\Settings\\Save As",             "View", "List", Nobody},
    SampleValue{User, O10 "Excel\\Options",                  "DefaultPath", "C:\\Data", Nobody},
    SampleValue{User, O11 "Excel\\Options",                  "DefaultPath", "C:\\Data", Nobody},
    SampleValue{User, O11 OPENFIND "Microsoft Office Excel\\Settings\\Open",        "View", "List", Nobody},
    SampleValue{User, O11 OPENFIND "Microsoft Office Excel\\Settings\\Save As",     "View", "List", Nobody},
    SampleValue{User, O12 "Excel\\Options",                  "DefaultPath", "C:\\Data", Nobody},

    // PowerPoint
    SampleValue{User, O9 "PowerPoint\\Recent File List",     "File1", "C:\\Data\\talk.ppt", Office},
    SampleValue{User, O9 OPENFIND "Microsoft PowerPoint\\Settings\\Open" MRU,       "Value", "talk.ppt", Office},
    SampleValue{User, O9 OPENFIND "Microsoft PowerPoint\\Settings\\Save As" MRU,    "Value", "talk.ppt", Office},
    SampleValue{User, O10 "PowerPoint\\Recent File List",    "File1", "C:\\Data\\talk.ppt", Office},
    SampleValue{User, O11 "PowerPoint\\Recent File List",    "File1", "C:\\Data\\talk 2.ppt", Office},
    SampleValue{User, O11 "PowerPoint\\Recent Templates",    "1", "Blue.pot", Office},
    SampleValue{User, O12 "PowerPoint\\File MRU",            "Item 1", "*C:\\Data\\talk 3.pptx", Office},
    SampleValue{User, O12 OPENFIND "Microsoft Office PowerPoint\\Settings\\Open" MRU, "Item 1", "talk 3.pptx", Office},
    SampleValue{User, O9 "PowerPoint\\Options",              "Ruler", "1", Nobody},
    SampleValue{User, O9 OPENFIND "Microsoft PowerPoint\\Settings\\Open",           "View", "List", Nobody},
    SampleValue{User, O9 OPENFIND "Microsoft PowerPoint\\Settings\\Save As",        "View", "List", Nobody},
    SampleValue{User, O10 "PowerPoint\\Options",             "Ruler", "1", Nobody},
    SampleValue{User, O11 "PowerPoint\\Options",             "Ruler", "1", Nobody},
    SampleValue{User, O12 "PowerPoint\\Options",             "Ruler", "1", Nobody},

    // Word. "Data" holds customised settings too.
    SampleValue{User, O9 "Word\\Data",                       "Settings", "Letter.doc", Office},
    SampleValue{User, O9 OPENFIND "Microsoft Word\\Settings\\Open" MRU,             "Value", "Letter.doc", Office},
    SampleValue{User, O9 OPENFIND "Microsoft Word\\Settings\\Save As" MRU,          "Value", "Letter.doc", Office},
    SampleValue{User, O10 "Word\\Data",                      "Settings", "Letter.doc", Office},
    SampleValue{User, O11 "Word\\Data",                      "Settings", "Letter.doc", Office},
    SampleValue{User, O11 "Word\\Recent Templates",          "1", "Fax.dot", Office},
    SampleValue{User, O11 OPENFIND "Microsoft Office Word\\Settings\\Insert Picture" MRU, "Value", "Holiday.jpg", Office},
    SampleValue{User, O11 OPENFIND "Microsoft Office Word\\Settings\\Open" MRU,     "Value", "Letter.doc", Office},
    SampleValue{User, O11 OPENFIND "Microsoft Office Word\\Settings\\Save As" MRU,  "Value", "Letter.doc", Office},
    SampleValue{User, O12 "Word\\File MRU",                  "Item 1", "*C:\\Users\\<user>\\Documents\\Letter.docx", Office},
    SampleValue{User, O12 OPENFIND "Microsoft Office Word\\Settings\\Open" MRU,     "Item 1", "Letter.docx", Office},
    SampleValue{User, O9 "Word\\Options",                    "DOC-PATH", "C:\\Data", Nobody},
    SampleValue{User, O9 OPENFIND "Microsoft Word\\Settings\\Open",                 "View", "List", Nobody},
    SampleValue{User, O9 OPENFIND "Microsoft Word\\Settings\\Save As",              "View", "List", Nobody},
    SampleValue{User, O10 "Word\\Options",                   "DOC-PATH", "C:\\Data", Nobody},
    SampleValue{User, O11 "Word\\Options",                   "DOC-PATH", "C:\\Data", Nobody},
    SampleValue{User, O12 "Word\\Options",                   "DOC-PATH", "C:\\Data", Nobody},
    SampleValue{User, O12 "Word\\Data",                      "SettingsWordMail", "1", Nobody},

    // FrontPage, and a list of Visio that goes with it
    SampleValue{User, FP "Recent File List",                 "File1", "C:\\Web\\index.htm", Office},
    SampleValue{User, FP "Recent Page List",                 "Page1", "C:\\Web\\index.htm", Office},
    SampleValue{User, FP "Recent Web List",                  "Web1", "C:\\Web", Office},
    SampleValue{User, FP "Recently Created Servers",         "Server1", "http://www.example.org/", Office},
    SampleValue{User, FRONTPAGE "Editor\\Recently Used URLs", "URL1", "http://www.example.org/", Office},
    SampleValue{User, O9 OPENFIND "Microsoft FrontPage\\Settings\\Open File" MRU,   "Value", "index.htm", Office},
    SampleValue{User, O9 OPENFIND "Microsoft FrontPage\\Settings\\Save As" MRU,     "Value", "index.htm", Office},
    SampleValue{User, O11 "FrontPage\\Recent Templates",     "1", "Three columns.tem", Office},
    SampleValue{User, O11 "Visio\\Application\\LastFile",    "1", "C:\\Data\\plan.vsd", Office},
    SampleValue{User, O12 OPENFIND "Microsoft Office FrontPage\\Settings\\Open" MRU, "Item 1", "index.htm", Office},
    SampleValue{User, FP "Settings",                         "Toolbar", "1", Nobody},
    SampleValue{User, FRONTPAGE "Editor\\Settings",          "Tab", "4", Nobody},
    SampleValue{User, O9 OPENFIND "Microsoft FrontPage\\Settings\\Open File",       "View", "List", Nobody},
    SampleValue{User, O9 OPENFIND "Microsoft FrontPage\\Settings\\Save As",         "View", "List", Nobody},
    SampleValue{User, O11 "FrontPage\\Options",              "Tab", "4", Nobody},
    SampleValue{User, O11 "Visio\\Application",              "Language", "1033", Nobody},

    // Of no application of these
    SampleValue{User, O11 "Outlook\\Preferences",            "FirstRun", "0", Nobody},
    SampleValue{User, O11 "Common\\UserInfo",                "UserName", "Anna", Nobody},
    SampleValue{User, O12 OPENFIND "Microsoft Office Outlook\\Settings\\Save As" MRU, "Item 1", "mail.msg", Nobody},
    SampleValue{User, OFFICE "14.0\\Word\\File MRU",         "Item 1", "*C:\\Data\\Report.docx", Nobody},
};
// clang-format on

#undef OFFICE
#undef O9
#undef O10
#undef O11
#undef O12
#undef OPENFIND
#undef MRU
#undef FRONTPAGE
#undef FP

}  // namespace

SampleTables officeTraces() {
    return {{}, {}, kValues, {}};
}

}  // namespace tidvane::frontend
