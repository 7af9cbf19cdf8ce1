#ifndef POSTWRIGHT_CLIENT_BATCH_STATUSICONS_H_
#define POSTWRIGHT_CLIENT_BATCH_STATUSICONS_H_

#include <QIcon>

namespace postwright {

// Returns the image of a status, "Fixed", "Multiple" or "Error", drawn for the colours in which the
// application shows lists now; no image for any other number, AddressStatusUnchanged among them.
// Loaded at the first call and kept for the life of the process. Belongs to the windows' thread.
QIcon statusIcon(qint32 status);

}  // namespace postwright

#endif  // POSTWRIGHT_CLIENT_BATCH_STATUSICONS_H_
