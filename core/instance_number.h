#pragma once
// `NumeroInstancia`: a number unique among the processes that use one
// installation at the same time, the lowest free one from 1. Each number is a
// lock file in the installation's PRIVDIR folder, held while the process lives;
// a process that dies leaves a stale lock that the next one takes over.

#include <QString>
#include <memory>

class QLockFile;

namespace co {

class NumeroInstancia {
public:
    // Takes the lowest free number under `carpetaInstalacion`/PRIVDIR; 0 when none
    // of the first `maximo` could be taken (the folder cannot be written, say).
    explicit NumeroInstancia(const QString &carpetaInstalacion, int maximo = 999);
    ~NumeroInstancia();
    NumeroInstancia(const NumeroInstancia &) = delete;
    NumeroInstancia &operator=(const NumeroInstancia &) = delete;

    int numero() const { return numero_; }
    // The private folder of this instance (PRIVDIR/<numero>), made on demand.
    QString carpetaPrivada() const;

private:
    QString base_;
    int numero_ = 0;
    std::unique_ptr<QLockFile> lock_;
};

} // namespace co
