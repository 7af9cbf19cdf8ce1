#ifndef POSTWRIGHT_CLIENT_ADDRESSBOOKDESIGNATORCONTROLLER_H_
#define POSTWRIGHT_CLIENT_ADDRESSBOOKDESIGNATORCONTROLLER_H_

#include <postwright/ClientExport.h>
#include <postwright/PostwrightSelector.h>

#include <QDialog>
#include <memory>

namespace Ui {
class AddressBookDesignator;
}

namespace postwright {

// The dialog in which the user names one unit of a candidate that stands for several.
//
//   AddressBookDesignatorController designator(selector);  // selector->hasRange() holds
//   designator.exec();                                     // -1000 after OK, -1001 after Cancel
//   if (const std::optional<QString> address = selector->fixedAddress()) use(*address);
//
// It shows the candidate and, in a caption, the last characters of its bounds, and takes any text
// for the last character of the unit: nothing typed is compared with the bounds. Where the
// candidate spans house numbers, too, a second field asks for the house number, since an address
// with one of the two open is of no use (see PostwrightSelector). OK is enabled while every field
// that is shown holds text. Enter is OK, Escape and closing the window are Cancel, which leaves the
// selector alone: what an earlier run named stays.
class POSTWRIGHT_CLIENT_EXPORT AddressBookDesignatorController : public QDialog {
  Q_OBJECT

 public:
  // initWithPostwrightSelector:. `selector`, not null, has a range and both bounds; it is shared
  // with the caller.
  explicit AddressBookDesignatorController(PostwrightSelectorPointer selector,
                                           QWidget* parent = nullptr);
  ~AddressBookDesignatorController() override;

  // Designates with the texts of the fields, closes the window and stops the modal run.
  void bnOKClick();

  // Closes the window and aborts the modal run.
  void bnCancelClick();

  void accept() override { bnOKClick(); }
  void reject() override { bnCancelClick(); }

 private:
  void windowDidLoad();
  void loadFromData();
  void saveToData();
  void controlTextDidChange();

  PostwrightSelectorPointer _addressSelector;
  std::unique_ptr<Ui::AddressBookDesignator> _layout;
};

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_ADDRESSBOOKDESIGNATORCONTROLLER_H_
