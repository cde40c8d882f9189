#include "children.h"

#include <QCoreApplication>

// Processes and sockets need an application around them.
int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (argc > 1 && QByteArrayView(argv[1]) == "--child")
        return exchange::child_main(QCoreApplication::arguments().mid(2));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
