#pragma once

namespace tavrel {

/// How the findings of a family of systems are dated and worded.
struct Manner {
    enum class Age { ownDate, newestInside };       // the date of a folder
    enum class Remarks { replaceNote, addToNote };  // where the reason for a review stands

    Age age = Age::ownDate;
    Remarks remarks = Remarks::replaceNote;
};

}  // namespace tavrel
