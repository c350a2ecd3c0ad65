#pragma once

class CKtFile;

/**
 * True when @p file's class replaces CKtFile::GetBufferPtr. The archive asks
 * this instead of calling the base implementation, which offers nothing.
 */
bool ktFileOverridesGetBufferPtr(const CKtFile* file);
