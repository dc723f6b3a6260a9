// Runs a fuzz target on stored inputs: replay_TARGET FOLDER...

#include <QDirIterator>
#include <QFile>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        int count = 0;
        QDirIterator files(QString::fromLocal8Bit(argv[i]), QDir::Files);
        for (; files.hasNext(); ++count) {
            QFile file(files.next());
            if (!file.open(QIODevice::ReadOnly))
                return 2;
            std::fprintf(stderr, "%s\n", qPrintable(file.fileName())); // shows which input failed
            const QByteArray octets = file.readAll();
            LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(octets.constData()),
                                   static_cast<size_t>(octets.size()));
        }
        if (count == 0) {
            std::fprintf(stderr, "%s: no input\n", argv[i]);
            return 2;
        }
    }
    return 0;
}
