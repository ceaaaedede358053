// A host program that knows the library only as it is installed.
#include "cropping.h"

#include <iostream>

int main()
{
    const QRect square = cropping::squareOf(cropping::picture());
    std::cout << "keeps columns " << square.left() << " to " << square.right() << '\n';
    return cropping::isRight(square) ? 0 : 1;
}
