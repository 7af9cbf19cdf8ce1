#ifndef POSTWRIGHT_APPS_ADDRESSBOOK_SETTINGS_PRINTSETTINGS_H_
#define POSTWRIGHT_APPS_ADDRESSBOOK_SETTINGS_PRINTSETTINGS_H_

#include <QList>
#include <QPointF>
#include <QString>

#include "apps/addressbook/fix/LabelLook.h"
#include "apps/addressbook/sheet/LabelSheet.h"
#include "apps/addressbook/sheet/SheetJob.h"

class QSettings;

namespace postwright::addressbook {

// How labels are printed, as the program remembers it. The place of the first label, the number of
// copies and whether refused addresses are printed are asked for each time.
struct PrintSettings {
  static PrintSettings load(const QSettings& settings);
  void save(QSettings& settings) const;

  LabelSheet sheet = LabelSheet::all().first();
  QList<LabelSheet> ownSheets = {};  // those that the user has measured
  LabelStyle style = {};
  QPointF shift = {};
  bool isByZip = false;

  bool hasLook = false;  // else labels are printed as they were typed
  LabelLook look = {};

  bool hasSender = false;
  QString sender = {};
  QString picture = {};  // path of an image; empty: none

  bool hasBarcode = false;
  MailCode mail = {};  // its serial number is that of the next piece
};

}  // namespace postwright::addressbook

#endif  // POSTWRIGHT_APPS_ADDRESSBOOK_SETTINGS_PRINTSETTINGS_H_
