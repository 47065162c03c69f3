#pragma once

#include <QIcon>
#include <QString>

namespace strutwright {

/// The icon that icons/NAME.svg draws, in each of the sizes that the build has made of it.
QIcon IconNamed(const QString& name);

} // namespace strutwright
