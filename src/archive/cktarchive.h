// CKtArchive (being written)
#pragma once
