#pragma once

/// The language that this process speaks.
namespace tavrel::Language {

/// Chooses the one that the environment asks for, from the catalogues that lie beside this program in
/// "share/locale". Without one for it everything stays English. To be called once, at the start.
void use();

}  // namespace tavrel::Language
