// The names and ids that the component is registered under. Clients are compiled against them, so
// they are fixed for ever.
#ifndef VANDPUBLIC_MEMBERS_IDENTITY_H
#define VANDPUBLIC_MEMBERS_IDENTITY_H

#include <string_view>

namespace vandpublic {

inline constexpr std::string_view kLibraryName = "Public_Module";
inline constexpr std::string_view kLibraryDescription = "VANDREL Public Module 1.0";
inline constexpr std::string_view kInterfaceName = "_clsPublic";
inline constexpr std::string_view kClassName = "clsPublic";

inline constexpr std::string_view kLibraryId = "0CC28951-A4A5-42F8-939F-4DF3E97EFCEA";
inline constexpr std::string_view kInterfaceId = "F13C73A4-5ACA-445A-B745-4E2C5644B430";
inline constexpr std::string_view kClassId = "28F9C989-9C3B-498B-9D24-9EFB7797B1B7";

}  // namespace vandpublic

#endif
