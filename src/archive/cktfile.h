// CKtFile (being written)
#pragma once
