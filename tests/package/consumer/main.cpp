// SPDX-License-Identifier: MIT
// A host of a few lines, built against the installed package: loads the plug-in that it is told
// and asks a text object of it for its name.
#include "host/framework/cbaseobject.h"

#include <QApplication>
#include <QLibrary>

#include <cstdio>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: consumer LIBRARY\n");
        return 2;
    }
    using Factory = CVXRootObject *(*)(int, int, bool, IVxPage *);
    QLibrary plugin(QString::fromLocal8Bit(argv[1]));
    const auto createText = reinterpret_cast<Factory>(plugin.resolve("createObject_text"));
    if (!createText) {
        std::fprintf(stderr, "%s\n", qPrintable(plugin.errorString()));
        return 1;
    }
    CVXRootObject *object = createText(0, 7, true, nullptr);
    const bool isTheTextObject = object->getObjName() == QLatin1String("wb text")
                                 && object->getObjId() == 7 && object->GetType() == 65543;
    object->Release();
    return isTheTextObject ? 0 : 1;
}
