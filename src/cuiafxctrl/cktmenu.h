// CKtMenu (being written)
#pragma once
