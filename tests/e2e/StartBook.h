#pragma once

#include "e2e/PictureDesk.h"

namespace tsms::test {

/// Shows every window of tsms-start in the states that a person sees, as PictureBook those of the program.
class StartBook
{
public:
    explicit StartBook(PictureDesk::TakePicture take) : take_(std::move(take)) {}

    void TurnAllPages();

private:
    PictureDesk::TakePicture take_;
};

} // namespace tsms::test
