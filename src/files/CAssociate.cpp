#include "CAssociate.h"

#include "Platform.h"

namespace strutwright {

void CAssociate::Validate() const {
  if (Title.empty()) throw AssociateError(922, "Associate Class - Application title not specified");
  if (Class.empty()) throw AssociateError(926, "Associate Class - Application Class name not specified");
  if (AppCommand.empty()) throw AssociateError(930, "Associate Class - Command line of the program not specified");
}

void CAssociate::Associate() const {
  Validate();
  FileTypeRegistry& types = FileTypes();
  types.SetDefault(Class, Title);
  types.SetDefault(Extension, Class);
  types.SetDefault(Class + "\\shell\\open\\command", AppCommand + " %1");
  types.SetDefault(Class + "\\DefaultIcon", DefaultIcon);
  types.Announce();
}

} // namespace strutwright
